// IconMailbox.ini, the list of mailboxes: a name or a name=folder line each.
// The mailbox menu is made from it, and a chosen entry looks up its folder.

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
    for (int i = 0; i < menu.GetCount(); ++i) {
        // What choosing the entry looks up before it scans the folder.
        const AnsiString name = CaptionWithoutHotKey(menu.Items(i).Caption);
        const AnsiString folderPath = inbox.Mailboxes.IndexOfName(name) >= 0
                                          ? inbox.Mailboxes.GetValue(name)
                                          : Utils->AddBackslash(Globals->DataFolder) + name;
        FuzzCheck(!menu.Items(i).Caption.IsEmpty(), "a menu entry has a caption");
        for (int j = 0; j < i; ++j)
            FuzzCheck(TMenuItem::MatchText(menu.Items(j).Caption.view()) !=
                          TMenuItem::MatchText(menu.Items(i).Caption.view()),
                      "no mailbox is twice in the menu");
    }
    return 0;
}
