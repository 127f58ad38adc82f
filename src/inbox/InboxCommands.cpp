// TInboxFrm: the buttons and menus: refresh, close, browse, mailboxes,
// deletion and opening the selected message.

#include "foundation/Utils.h"
#include "inbox/InboxForm.h"
#include "platform/Application.h"
#include "platform/Dialogs.h"
#include "settings/Globals.h"
#include "settings/PanelButtons.h"

namespace {

const AnsiString warning = "Warning";

bool Confirmed(const AnsiString& text) {
    return Dialogs && Dialogs->MessageBox(text, warning, mbOKCancel) == idOK;
}

} // namespace

void TInboxFrm::LMDpfRefreshClick() {
    if (!PButtons->ButtonPress(LMDpfRefresh)) return;
    SetReady(false);
    ScanMessages();
    SetReady(true);
    Utils->Delay(200);
    PButtons->ButtonRelease(LMDpfRefresh);
}

void TInboxFrm::LMDpfCloseClick() {
    if (!PButtons->ButtonPress(LMDpfClose)) return;
    Utils->Delay(500);
    Close();
    PButtons->ButtonRelease(LMDpfClose);
}

void TInboxFrm::LMDpfInboxClick() {
    if (!PButtons->ButtonPress(LMDpfInbox)) return;
    Utils->OpenFolder(MailboxFolder);
    Utils->Delay(500);
    PButtons->ButtonRelease(LMDpfInbox);
}

void TInboxFrm::LMDpfSubMailboxesClick() {
    if (PButtons->MenuButtonPress(LMDpfSubMailboxes, &pmMailBoxes))
        PButtons->MenuButtonRelease(LMDpfSubMailboxes);
}

void TInboxFrm::pmMailBoxesPopup() {
    if (Mailboxes.Count() == 0) return;
    Globals->MenuClick = [this](TMenuItem& sender) { MailboxMenuClick(sender); };
    Globals->FillMenu(pmMailBoxes.Items, Mailboxes);
}

void TInboxFrm::MailboxMenuClick(TMenuItem& sender) {
    MailboxName = CaptionWithoutHotKey(sender.Caption);
    MailboxFolder = Mailboxes.IndexOfName(MailboxName) >= 0
                        ? Mailboxes.GetValue(MailboxName)
                        : Utils->AddBackslash(Globals->DataFolder) + MailboxName;
    ScanAndSortByArrival();
    SetReady(true);
}

void TInboxFrm::pmsRejectedClick() {
    MailboxFolder = Utils->AddBackslash(Globals->RejectedFolder);
    SetReady(false);
    MailboxName = "Rejected Mail";
    ScanAndSortByArrival();
    SetReady(true);
}

void TInboxFrm::LMDpfDeleteClick() {
    if (!lvEmailList.Selected() || !PButtons->ButtonPress(LMDpfDelete)) return;
    try {
        const AnsiString name = lvEmailList.Selected()->SubItems.at(5);
        AnsiString text;
        text.sprintf("\nYou are about to delete:\n\n %s\n\n Press OK to continue?\n", name.c_str());
        if (Confirmed(text)) {
            SetReady(false);
            DeleteListedFile(name);
            ScanMessages();
            AnsiString status;
            LMDpfStatusBar.SetCaption(status.sprintf("%s Deleted!", name.c_str()));
            SetReady(true);
        }
    } catch (const std::exception&) {
        SetReady(true);
    }
    PButtons->ButtonRelease(LMDpfDelete);
}

void TInboxFrm::LMDpfSubDeleteClick() {
    if (PButtons->MenuButtonPress(LMDpfSubDelete, &pmDelete))
        PButtons->MenuButtonRelease(LMDpfSubDelete);
}

void TInboxFrm::pmsDeleteAllButClick() {
    DeleteMessages(true);
}

void TInboxFrm::pmsDeleteSelButClick() {
    if (lvEmailList.Selected()) DeleteMessages(false);
}

void TInboxFrm::DeleteMessages(bool all) {
    const int count = all ? lvEmailList.Count() : lvEmailList.SelCount();
    AnsiString text;
    text.sprintf("\nYou are about to delete %d messages\n\n Press OK to continue?\n", count);
    if (!Confirmed(text)) return;
    SetReady(false);
    try {
        for (int i = 0; i < lvEmailList.Count(); ++i) {
            if (all) lvEmailList.SetSelected(i, true);
            if (!lvEmailList.Item(i).Selected) continue;
            const AnsiString name = lvEmailList.Item(i).SubItems.at(5);
            DeleteListedFile(name);
            AnsiString status;
            LMDpfStatusBar.SetCaption(status.sprintf("%s Deleted!", name.c_str()));
        }
        ScanMessages();
    } catch (const std::exception&) {
    }
    SetReady(true);
}

void TInboxFrm::RunMail(const AnsiString& client) {
    const TListItem* row = lvEmailList.Selected();
    if (!row) return;
    SetReady(false);
    const AnsiString path = Utils->AddBackslash(MailboxFolder) + row->SubItems.at(5);
    Globals->OpenInMailClient(client, path);
    SetReady(true);
}

void TInboxFrm::LMDpfRunMailClick() {
    if (!PButtons->ButtonPress(LMDpfRunMail)) return;
    RunMail(LMDpfRunMail.Caption());
    PButtons->ButtonRelease(LMDpfRunMail);
}

void TInboxFrm::LMDpfSubEmailersClick() {
    if (PButtons->MenuButtonPress(LMDpfSubEmailers, &pmEmailers))
        PButtons->MenuButtonRelease(LMDpfSubEmailers);
}

void TInboxFrm::pmEmailersPopup() {
    Globals->FillClientMenu(pmEmailers.Items,
                            [this](TMenuItem& sender) { EmailerMenuClick(sender); });
}

void TInboxFrm::EmailerMenuClick(TMenuItem& sender) {
    RunMail(sender.Caption);
}

void TInboxFrm::LMDpfHelpClick() {
    if (!PButtons->ButtonPress(LMDpfHelp)) return;
    Globals->RunSystemHelp();
    PButtons->ButtonRelease(LMDpfHelp);
}
