// The hand-off file that names the mailbox to open and the sender line: its
// first two lines, read at the window's start.

#include "FuzzFolder.h"
#include "foundation/Utils.h"
#include "inbox/InboxForm.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static TInboxFrm inbox;
    const TFuzzFolder& folder = TFuzzFolder::Get();
    folder.KeepLogHere();
    inbox.MailboxFolder = "";
    inbox.SenderLine = "";
    inbox.HandOffPath = folder.Write("vellumdesk.ini", FuzzBytes(data, size));
    const AnsiString name = inbox.LoadStartMailbox();
    TStringList lines;
    lines.SetText(FuzzBytes(data, size));
    if (lines.Count() >= 2) {
        FuzzCheck(inbox.MailboxFolder == lines[0], "the first line names the folder");
        FuzzCheck(inbox.SenderLine == lines[1], "the second line is the sender line");
    }
    FuzzCheck(name == Utils->FileStem(inbox.MailboxFolder), "the mailbox is the folder's stem");
    return 0;
}
