// TInboxFrm: creation, the activation that is the program's real start, and
// destruction.

#include "foundation/Utils.h"
#include "inbox/InboxForm.h"
#include "platform/Application.h"
#include "search/MailSearch.h"
#include "settings/Globals.h"
#include "settings/PanelButtons.h"

void TInboxFrm::FormCreate() {
    ownedGlobals = std::make_unique<TGlobals>();
    Globals = ownedGlobals.get();
    ownedUtils = std::make_unique<TUtils>();
    Utils = ownedUtils.get();
    ownedPButtons = std::make_unique<TPButtons>();
    PButtons = ownedPButtons.get();
}

void TInboxFrm::FormDestroy() {
    if (Globals == ownedGlobals.get()) Globals = nullptr;
    ownedGlobals.reset();
    if (Utils == ownedUtils.get()) Utils = nullptr;
    ownedUtils.reset();
    if (PButtons == ownedPButtons.get()) PButtons = nullptr;
    ownedPButtons.reset();
}

// Runs when the window is first shown; closing a modal window does not run it.
void TInboxFrm::FormActivate() {
    LMDpfHtml.SetWidth(0);
    for (TStringList* list : {&FromFilterTexts, &SubjectFilterTexts, &DateFilterTexts}) {
        list->Clear();
        list->SetSorted(true);
        list->SetDuplicates(TDuplicates::dupIgnore);
    }
    Globals->InitFolders();
    MailboxName = LoadStartMailbox();
    LMDpfSend.SetEnabled(false);
    if (Globals->LoadConfig()) LMDpfSend.SetEnabled(true);
    try {
        Mailboxes.LoadFromFile(Utils->AddBackslash(Globals->DataFolder) + "IconMailbox.ini");
    } catch (const Exception&) {
    }
    if (MailboxName.IsEmpty() && Mailboxes.Count() > 0) MailboxName = Mailboxes[0];
    LMDcbFilterType.SetItemIndex(0);
    SetRunMailWidths();
    ScanAndSortByArrival();
    LMDpfDate.SetCaption("Today " + TUtils::FormatDateTime("mm.dd.yyyyy hh.nn", TUtils::Now()));
    if (frmMailSearch)
        frmMailSearch->OnSearch = [this](AnsiString text, bool caseSensitive, bool wholeWord,
                                         unsigned short where) {
            return SearchMessages(std::move(text), caseSensitive, wholeWord, where);
        };
    SetReady(true);
}

void TInboxFrm::SetRunMailWidths() {
    const AnsiString client = Globals->Config.MailClient();
    LMDpfRunMail.SetCaption(client);
    const int width = 9 * client.Length() + LMDpfSubEmailers.Width();
    LMDpfRunMail.SetWidth(width < 85 ? 85 : width);
    SetWidth(LMDpfRunMail.Width() + 6 * LMDpfInbox.Width() + 20);
}

// The start-up sort; later calls leave the user's order, see ToggleSort.
void TInboxFrm::ScanAndSortByArrival() {
    SetReady(false);
    ScanMessages();
    Utils->SortColumn = 2;
    lvEmailList.SetSortType(TSortType::stText);
}
