#include "inbox/InboxForm.h"

#include "foundation/Utils.h"
#include "settings/Globals.h"
#include "settings/PanelButtons.h"

namespace {

struct TButtonSetUp {
    TPanelButton& button;
    const char* caption;
    int helpContext;
};

} // namespace

TInboxFrm::TInboxFrm() : TForm("InboxFrm") {
    SetUpControls();
    SetUpList();
    SetUpMenus();
    FormCreate();
}

TInboxFrm::~TInboxFrm() {
    FormDestroy();
}

void TInboxFrm::SetUpControls() {
    for (const TButtonSetUp& b :
         {TButtonSetUp{LMDpfInbox, " Browse", 93}, TButtonSetUp{LMDpfSubMailboxes, "v", 92},
          TButtonSetUp{LMDpfRules, "Rules", 45}, TButtonSetUp{LMDpfRunMail, "Run Mail", 95},
          TButtonSetUp{LMDpfSubEmailers, "v", 94}, TButtonSetUp{LMDpfSend, "Forward", 163},
          TButtonSetUp{LMDpfDelete, " Delete", 97}, TButtonSetUp{LMDpfSubDelete, "v", 96},
          TButtonSetUp{LMDpfHelp, "Help", 9}, TButtonSetUp{LMDpfClose, "Close", 100},
          TButtonSetUp{LMDpfRefresh, "Refresh", 98}, TButtonSetUp{LMDpfSearch, "Search", 98}}) {
        b.button.SetCaption(b.caption);
        b.button.SetHelpContext(b.helpContext);
    }
    // Design widths; the activation's width rule starts from those of
    // LMDpfSubEmailers and LMDpfInbox.
    for (TPanelButton* menuButton : {&LMDpfSubMailboxes, &LMDpfSubEmailers, &LMDpfSubDelete})
        menuButton->SetWidth(12);
    for (TPanelButton* button : {&LMDpfInbox, &LMDpfRules, &LMDpfSend, &LMDpfDelete, &LMDpfHelp,
                                 &LMDpfClose, &LMDpfRefresh, &LMDpfSearch})
        button->SetWidth(80);
    LMDpfRunMail.SetWidth(85);

    LMDpfRefresh.OnClick = [this] { LMDpfRefreshClick(); };
    LMDpfClose.OnClick = [this] { LMDpfCloseClick(); };
    LMDpfInbox.OnClick = [this] { LMDpfInboxClick(); };
    LMDpfSubMailboxes.OnClick = [this] { LMDpfSubMailboxesClick(); };
    LMDpfDelete.OnClick = [this] { LMDpfDeleteClick(); };
    LMDpfSubDelete.OnClick = [this] { LMDpfSubDeleteClick(); };
    LMDpfRunMail.OnClick = [this] { LMDpfRunMailClick(); };
    LMDpfSubEmailers.OnClick = [this] { LMDpfSubEmailersClick(); };
    LMDpfSend.OnClick = [this] { LMDpfSendClick(); };
    LMDpfHelp.OnClick = [this] { LMDpfHelpClick(); };
    LMDpfSearch.OnClick = [this] { LMDpfSearchClick(); };
    LMDpfRules.OnClick = [this] { LMDpfRulesClick(); };
    // The small menu buttons rest with a lowered outer bevel.
    for (TPanelButton* menuButton : {&LMDpfSubMailboxes, &LMDpfSubEmailers, &LMDpfSubDelete})
        menuButton->SetBevels(bvRaised, bvLowered);

    LMDcbFilterType.Style = TComboStyle::csDropDownList;
    for (const char* type : {"None", "From", "Subject", "Arival Date"})
        LMDcbFilterType.AddItem(type);
    LMDcbFilterType.SetHelpContext(161);
    LMDcbFilterType.OnChange = [this] { LMDcbFilterTypeChange(); };
    LMDcbFilterText.SetHelpContext(162);
    LMDcbFilterText.OnChange = [this] { LMDcbFilterTextChange(); };
}

void TInboxFrm::SetUpList() {
    for (const auto& [caption, width] :
         std::initializer_list<std::pair<const char*, int>>{{"From", 160},
                                                            {"Subject", 220},
                                                            {"Arrival Date", 150},
                                                            {"Size", 70},
                                                            {"Attachments", 140},
                                                            {"C", 60},
                                                            {"File Name", 140}})
        lvEmailList.Columns.push_back({caption, width});
    lvEmailList.SetHelpContext(99);
    lvEmailList.HintColumn = 2;
    lvEmailList.OnDblClick = [this] { lvEmailListDblClick(); };
    lvEmailList.OnColumnClick = [this](int column) { lvEmailListColumnClick(column); };
    lvEmailList.OnCompare = [this](const TListItem& a, const TListItem& b) {
        return lvEmailListCompare(a, b);
    };
    lvEmailList.OnTextOrder = [this] { return lvEmailListTextOrder(); };
}

void TInboxFrm::SetUpMenus() {
    auto entry = [](const char* caption, std::function<void()> click) {
        auto item = std::make_unique<TMenuItem>(caption);
        item->OnClick = [click = std::move(click)](TMenuItem&) { click(); };
        return item;
    };
    pmsRejected = &pmMailBoxes.Items.Add(entry("Rejected", [this] { pmsRejectedClick(); }));
    pmMailBoxes.OnPopup = [this] { pmMailBoxesPopup(); };
    pmsDeleteAllBut = &pmDelete.Items.Add(entry("All", [this] { pmsDeleteAllButClick(); }));
    pmsDeleteSelBut = &pmDelete.Items.Add(entry("Selected", [this] { pmsDeleteSelButClick(); }));
    pmEmailers.OnPopup = [this] { pmEmailersPopup(); };
    SetUpRulesMenu();
}

// The busy lock of the window: a control with the hourglass refuses its press.
void TInboxFrm::SetReady(bool ready) {
    const TCursor cursor = ready ? crHandPoint : crHourGlass;
    for (TControl* control : std::initializer_list<TControl*>{
             &lvEmailList, &LMDpfInbox, &LMDpfSubMailboxes, &LMDpfRunMail, &LMDpfSubEmailers,
             &LMDpfDelete, &LMDpfSubDelete, &LMDpfRefresh, &LMDpfClose})
        control->SetCursor(cursor);
}
