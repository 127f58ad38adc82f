// TGlobals: menus from lists, opening a message in a mail client, and the
// value behind a header name.

#include <set>
#include <string>
#include <utility>

#include "controls/PopupMenu.h"
#include "foundation/CaseFold.h"
#include "foundation/Utils.h"
#include "platform/Dialogs.h"
#include "settings/Globals.h"

// The captions already there are kept in an ordered set, so a list of n lines
// costs n log n comparisons, not one walk of the menu per line.
int TGlobals::FillMenu(TMenuItem& item, const TStringList& list) {
    const auto less = [](const std::string& a, const std::string& b) {
        return casefold::CompareText(a, b) < 0;
    };
    std::set<std::string, decltype(less)> present(less);
    for (int i = 0; i < item.GetCount(); ++i)
        present.insert(TMenuItem::MatchText(item.Items(i).Caption.view()));
    for (int i = 0; i < list.Count(); ++i) {
        if (list[i].IsEmpty()) continue;
        AnsiString caption = list.GetName(i);
        if (caption.IsEmpty()) caption = list[i];
        if (!present.insert(TMenuItem::MatchText(caption.view())).second) continue;
        auto entry = std::make_unique<TMenuItem>(caption);
        entry->OnClick = MenuClick;
        item.Add(std::move(entry));
    }
    return item.GetCount();
}

void TGlobals::FillClientMenu(TMenuItem& item, std::function<void(TMenuItem& sender)> onClick) {
    if (MailClients.Count() == 0) return;
    MenuClick = std::move(onClick);
    FillMenu(item, MailClients);
}

// A client's command is the desktop entry that registers it, so starting that
// entry with the message's path runs the program the way the desktop would.
// The path is passed whole, as one argument, whatever its length; the message
// file itself is never what is started.
bool TGlobals::OpenInMailClient(const AnsiString& client, const AnsiString& file) {
    const AnsiString name = CaptionWithoutHotKey(client);
    const int line = MailClients.IndexOfName(name);
    if (line < 0) return false;
    AnsiString cmd = Utils->StripQuotes(EMailReg->GetClientCommand(MailClients.GetValue(name)));
    AnsiString args;
    if (const int p = cmd.LowerCase().Pos(".exe"); p > 1) {
        const int q = p + 4;
        if (q < cmd.Length()) {
            args = cmd.SubString(q, 512).Trim();
            cmd.Delete(q, 512);
        }
    }
    cmd = Utils->ExpandProgramFiles(cmd);
    try {
        if (file.IsEmpty()) return Utils->ExecuteFile(cmd, args, false);
        AnsiString path = Utils->ShortPath(file);
        if (path.IsEmpty()) return false;
        if (cmd.LowerCase().Pos("msimn.exe") > 0) path = "/eml:" + path;
        return Utils->ExecuteFile(cmd, std::vector<AnsiString>{path}, false);
    } catch (const Exception&) {
        return false;
    }
}

AnsiString TGlobals::FindLineValue(const AnsiString& key, const TStringList& lines) {
    const AnsiString lowerKey = key.LowerCase();
    for (int i = 0; i < lines.Count(); ++i) {
        if (Application) Application->ProcessMessages();
        if (Application && Application->Terminated()) break;
        const AnsiString& line = lines[i];
        if (line.LowerCase().Pos(lowerKey) > 0)
            return line.SubString(line.Pos(":") + 1, 512).Trim();
    }
    return " ";
}

// The help file is a text of "context=text" lines beside the program.
void TGlobals::ShowContextHelp(int id) {
    if (!Application || !Dialogs) return;
    TStringList help;
    try {
        help.LoadFromFile(Application->HelpFile);
    } catch (const Exception&) {
        return;
    }
    const AnsiString text = help.GetValue(AnsiString(static_cast<unsigned long>(id)));
    if (!text.IsEmpty()) Dialogs->ShowHelpPopup(text, Application->CursorPos());
}
