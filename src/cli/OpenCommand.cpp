// vellumdesk-cli open: opens a message file in a mail client as Run Mail
// does, and returns without waiting for the client.

#include <cstdio>

#include "cli/CliCommand.h"
#include "cli/CliHelp.h"
#include "cli/CliSession.h"
#include "platform/linux/DesktopMailClients.h"
#include "settings/Globals.h"

namespace {

int RunOpen(const std::vector<std::string>& args) {
    if (args.size() != 1 && !(args.size() == 3 && args[1] == "--client"))
        return CliUsageError("open");
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
    globals.OpenInMailClient(client, AnsiString(args[0]));
    Globals = nullptr;
    return 0;
}

const TCliCommand openCommand("open", RunOpen);

} // namespace
