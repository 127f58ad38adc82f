#include "search/MailSearch.h"

#include <algorithm>
#include <unistd.h>
#include <vector>

#include "foundation/Utils.h"
#include "platform/Application.h"
#include "platform/Dialogs.h"
#include "settings/Globals.h"
#include "settings/PanelButtons.h"

TfrmMailSearch* frmMailSearch = nullptr;

namespace {

struct TButtonSetUp {
    TPanelButton& button;
    const char* caption;
    int helpContext;
    int width;
};

} // namespace

TfrmMailSearch::TfrmMailSearch() : TForm("frmMailSearch") {
    SetUpControls();
    FormCreate();
}

TfrmMailSearch::~TfrmMailSearch() {
    FormDestroy();
}

void TfrmMailSearch::SetUpControls() {
    SetCaption("Find Text");
    SetWidth(firstWidth);
    SetHeight(firstHeight);
    SetVisible(false);
    tsSearch.SetCaption("Find in Messages");
    PageControl1.AddPage(tsSearch);
    LMDSimpleLabel1.SetCaption("Text to find:");
    LMDgbOptions.SetCaption("Options");
    LMDcbxCaseSense.SetCaption("Case Sensitive");
    LMDcbxWholeWord.SetCaption("Whole Words only");
    LMDcbxCaseSense.SetParent(&LMDgbOptions);
    LMDcbxWholeWord.SetParent(&LMDgbOptions);
    LMDrgWhere.SetCaption("Where");
    TStringList where;
    for (const char* item : {"Listed Messages", "Current Inbox", "All Inboxes"})
        where.Add(item);
    LMDrgWhere.SetItems(where);
    LMDrgWhere.SetItemIndex(0);
    LMDpfOptions.SetWidth(firstWidth - 16);
    for (const TButtonSetUp& b :
         {TButtonSetUp{LMDpfBegin, "Begin", 0, 80}, TButtonSetUp{LMDpfClear, "Clear", 0, 80},
          TButtonSetUp{LMDpfRunMail, "Run Mail", 95, 85},
          TButtonSetUp{LMDpfSubEmailers, "v", 94, 12}, TButtonSetUp{LMDpfDelete, " Delete", 97, 80},
          TButtonSetUp{LMDpfHelp, "Help", 9, 80}, TButtonSetUp{LMDpfClose, "Close", 100, 80}}) {
        b.button.SetCaption(b.caption);
        b.button.SetHelpContext(b.helpContext);
        b.button.SetWidth(b.width);
    }
    LMDpfSubEmailers.SetBevels(bvRaised, bvLowered);
    for (const auto& [caption, width] : std::initializer_list<std::pair<const char*, int>>{
             {"Line", 200}, {"Arrival Date", 120}, {"From", 120}, {"Subject", 120}, {"File", 200}})
        lvSrchResult.Columns.push_back({caption, width});
    lvSrchResult.OnDblClick = [this] { lvSrchResultDblClick(); };
    LMDpfBegin.OnClick = [this] { LMDpfBeginClick(); };
    LMDpfClear.OnClick = [this] { LMDpfClearClick(); };
    LMDpfRunMail.OnClick = [this] { LMDpfRunMailClick(); };
    LMDpfSubEmailers.OnClick = [this] { LMDpfSubEmailersClick(); };
    LMDpfDelete.OnClick = [this] { LMDpfDeleteClick(); };
    LMDpfHelp.OnClick = [this] { LMDpfHelpClick(); };
    LMDpfClose.OnClick = [this] { LMDpfCloseClick(); };
    pmEmailers.OnPopup = [this] { pmEmailersPopup(); };
    OnShow = [this] { FormShow(); };
    OnClose = [this] { FormClose(); };
    FormResize();
}

void TfrmMailSearch::FormCreate() {
    SearchHits.Clear();
}

void TfrmMailSearch::FormDestroy() {
    SearchHits.Clear();
}

// The search text takes the focus; a screen binding gives it when it shows.
void TfrmMailSearch::FormShow() {}

void TfrmMailSearch::FormResize() {
    const int w = (LMDpfOptions.Width() - 24) / 2;
    LMDgbOptions.SetWidth(w);
    rgWhereLeft = gbOptionsLeft + w + 8;
    LMDrgWhere.SetWidth(w);
}

void TfrmMailSearch::FormClose() {
    LMDpfClearClick();
}

void TfrmMailSearch::OpenSearch() {
    LMDrgWhere.SetItemIndex(0);
    LMDcbSearchStr.SetText("");
    const AnsiString client = Globals ? Globals->Config.MailClient() : AnsiString();
    LMDpfRunMail.SetCaption(client);
    const int width = 9 * client.Length() + LMDpfSubEmailers.Width();
    LMDpfRunMail.SetWidth(width < 85 ? 85 : width);
    SetWidth(5 * LMDpfBegin.Width() + LMDpfRunMail.Width() + 20);
    ShowModal();
}

void TfrmMailSearch::LMDpfBeginClick() {
    if (!PButtons->ButtonPress(LMDpfBegin)) return;
    ++generation;
    const AnsiString text = LMDcbSearchStr.Text();
    if (LMDcbSearchStr.Items().IndexOf(text) < 0) LMDcbSearchStr.AddItem(text);
    if (OnSearch) {
        SearchHits.Clear();
        OnSearch(text, LMDcbxCaseSense.Checked(), LMDcbxWholeWord.Checked(),
                 static_cast<unsigned short>(LMDrgWhere.ItemIndex()));
        if (SearchHits.Count() == 0) {
            if (Dialogs) Dialogs->ShowMessage("Text not found!");
        } else {
            FillRows();
        }
    }
    PButtons->ButtonRelease(LMDpfBegin);
}

// Hits of one file stand together, so each run of them reads its file once.
void TfrmMailSearch::FillRows() {
    lvSrchResult.Clear();
    const std::uint64_t mine = generation;
    for (int first = 0; first < SearchHits.Count() && generation == mine;) {
        const AnsiString path = SearchHits.GetName(first);
        int last = first + 1;
        while (last < SearchHits.Count() && SearchHits.GetName(last) == path)
            ++last;
        AddFileRows(first, last, path);
        first = last;
    }
}

void TfrmMailSearch::AddFileRows(int first, int last, const AnsiString& path) {
    std::vector<std::int64_t> indexes;
    for (int i = first; i < last; ++i) {
        const std::string_view line = SearchHits[i].view();
        const AnsiString value(line.substr(line.find('=') + 1));
        indexes.push_back(value.SubString(1, 4).ToIntDef(-1));
    }
    std::vector<std::int64_t> wanted = indexes;
    std::sort(wanted.begin(), wanted.end());
    wanted.erase(std::unique(wanted.begin(), wanted.end()), wanted.end());
    const std::uint64_t mine = generation;
    // The header lookup lets the message loop run once per line it examines.
    auto yield = [this, mine] {
        if (Application) Application->ProcessMessages();
        return generation == mine && !(Application && Application->Terminated());
    };
    THitRows::TFileValues values;
    if (!hitRows.Read(path.c_str(), wanted, yield, values) || generation != mine) return;
    for (std::size_t k = 0; k < indexes.size(); ++k) {
        const auto line = values.lines.find(indexes[k]);
        if (indexes[k] < 0 || line == values.lines.end()) continue;
        TListItem& row = lvSrchResult.Add();
        // The last row of a line takes its text; a long line is never copied.
        const bool lastUse = std::find(indexes.begin() + static_cast<std::ptrdiff_t>(k) + 1,
                                       indexes.end(), indexes[k]) == indexes.end();
        row.Caption = lastUse ? AnsiString(std::move(line->second)) : AnsiString(line->second);
        row.SubItems = {values.date, values.from, values.subject, path};
    }
}

void TfrmMailSearch::LMDpfClearClick() {
    if (!PButtons->ButtonPress(LMDpfClear)) return;
    ++generation;
    LMDcbxCaseSense.SetChecked(false);
    LMDcbxWholeWord.SetChecked(false);
    LMDrgWhere.SetItemIndex(0);
    lvSrchResult.Clear();
    PButtons->ButtonRelease(LMDpfClear);
}

void TfrmMailSearch::LMDpfCloseClick() {
    if (!PButtons->ButtonPress(LMDpfClose)) return;
    Utils->Delay(500);
    Close();
    PButtons->ButtonRelease(LMDpfClose);
}

void TfrmMailSearch::LMDpfHelpClick() {
    if (Globals) Globals->RunSystemHelp();
}

void TfrmMailSearch::LMDpfRunMailClick() {
    if (!PButtons->ButtonPress(LMDpfRunMail)) return;
    RunMail(LMDpfRunMail.Caption());
    PButtons->ButtonRelease(LMDpfRunMail);
}

void TfrmMailSearch::RunMail(const AnsiString& client) {
    const TListItem* row = lvSrchResult.Selected();
    if (!row || row->SubItems.size() < 4) return;
    Globals->OpenInMailClient(client, row->SubItems[3]);
}

void TfrmMailSearch::LMDpfSubEmailersClick() {
    if (PButtons->MenuButtonPress(LMDpfSubEmailers, &pmEmailers))
        PButtons->MenuButtonRelease(LMDpfSubEmailers);
}

void TfrmMailSearch::pmEmailersPopup() {
    Globals->FillClientMenu(pmEmailers.Items,
                            [this](TMenuItem& sender) { EmailerMenuClick(sender); });
}

void TfrmMailSearch::EmailerMenuClick(TMenuItem& sender) {
    RunMail(sender.Caption);
}

void TfrmMailSearch::LMDpfDeleteClick() {
    const TListItem* row = lvSrchResult.Selected();
    if (!row) return;
    if (!PButtons->ButtonPress(LMDpfDelete)) return;
    try {
        const AnsiString path = row->SubItems.at(3);
        AnsiString text;
        text.sprintf("\nYou are about to delete:\n\n %s\n\n Press OK to continue?\n", path.c_str());
        if (Dialogs && Dialogs->MessageBox(text, "Warning", mbOKCancel) == idOK) {
            ::unlink(path.c_str());
            lvSrchResult.Clear();
            LMDpfBeginClick();
        }
    } catch (...) {
        // Nothing of a failed deletion reaches the user.
    }
    PButtons->ButtonRelease(LMDpfDelete);
}
