// TInboxFrm: the Forward button, which hands the selected message to the
// forward dialog.

#include "forwarding/SendToForm.h"
#include "foundation/Utils.h"
#include "inbox/InboxForm.h"
#include "settings/PanelButtons.h"

void TInboxFrm::LMDpfSendClick() {
    const TListItem* row = lvEmailList.Selected();
    if (!row || !PButtons->ButtonPress(LMDpfSend)) return;
    try {
        const AnsiString path = Utils->AddBackslash(MailboxFolder) + row->SubItems.at(5);
        if (frmSendTo) frmSendTo->OpenForward(path, SenderLine);
        Utils->Delay(500);
    } catch (...) {
        // Whatever went wrong, the button comes back.
    }
    PButtons->ButtonRelease(LMDpfSend);
}
