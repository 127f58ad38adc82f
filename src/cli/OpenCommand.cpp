// vellumdesk-cli open: opens a message file in a mail client as Run Mail
// does, and returns without waiting for the client.

#include <cstdio>

#include "cli/CliCommand.h"
#include "cli/CliHelp.h"
#include "cli/CliPaths.h"
#include "cli/CliSession.h"
#include "controls/PopupMenu.h"
#include "platform/linux/DesktopMailClients.h"
#include "script/FieldEscape.h"
#include "settings/Globals.h"

namespace {

int RunOpen(const std::vector<std::string>& args) {
    if (args.size() != 1 && !(args.size() == 3 && args[1] == "--client"))
        return CliUsageError("open");
    std::string file = args[0], problem;
    if (!AbsoluteFile(file, problem)) {
        std::fprintf(stderr, "open: %s\n", problem.c_str());
        return 1;
    }
    TCliSession session;
    CreateRegistry = CreateDesktopRegistry;
    TGlobals globals;
    Globals = &globals;
    AnsiString client;
    if (args.size() == 3) {
        client = AnsiString(args[2]);
    } else {
        globals.InitFolders();
        globals.LoadConfig();
        client = globals.Config.MailClient();
    }
    const bool known = globals.MailClients.IndexOfName(CaptionWithoutHotKey(client)) >= 0;
    const bool started = known && globals.OpenInMailClient(client, AnsiString(file));
    Globals = nullptr;
    if (started) return 0;
    std::fprintf(stderr, "open: %s '%s'\n",
                 known ? "cannot start the mail client" : "no mail client named",
                 Escaped(client.view(), TEscape::Controls).c_str());
    return 1;
}

const TCliCommand openCommand("open", RunOpen);

} // namespace
