// IconMailbox.ini, the list of mailboxes: a name or a name=folder line each.
// The mailbox menu is made from it, and a chosen entry looks up its folder.

#include <set>
#include <string>

#include "FuzzFolder.h"
#include "foundation/Utils.h"
#include "inbox/InboxForm.h"
#include "settings/Globals.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static TInboxFrm inbox;
    const TFuzzFolder& folder = TFuzzFolder::Get();
    folder.KeepLogHere();
    Globals->DataFolder = folder.Path();
    folder.Write("IconMailbox.ini", FuzzBytes(data, size));
    inbox.Mailboxes.Clear();
    inbox.pmMailBoxes.Items = TMenuItem();
    try {
        inbox.Mailboxes.LoadFromFile(Utils->AddBackslash(Globals->DataFolder) + "IconMailbox.ini");
    } catch (const Exception&) {
    }
    inbox.pmMailBoxesPopup();
    const TMenuItem& menu = inbox.pmMailBoxes.Items;
    std::set<std::string> captions;
    for (int i = 0; i < menu.GetCount(); ++i) {
        const AnsiString& caption = menu.Items(i).Caption;
        FuzzCheck(!caption.IsEmpty(), "a menu entry has a caption");
        FuzzCheck(captions.insert(TMenuItem::MatchText(caption.view())).second,
                  "no mailbox is twice in the menu");
        // What choosing the entry looks up before it scans the folder.
        const AnsiString name = CaptionWithoutHotKey(caption);
        if (inbox.Mailboxes.IndexOfName(name) >= 0) inbox.Mailboxes.GetValue(name);
    }
    return 0;
}
