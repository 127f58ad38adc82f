// vellumdesk-cli clients: the mail clients as the program holds them after
// start-up, "display name=desktop id", one per line.

#include <cstdio>

#include "cli/CliCommand.h"
#include "cli/CliHelp.h"
#include "cli/CliSession.h"
#include "platform/linux/DesktopMailClients.h"
#include "settings/Globals.h"

namespace {

int RunClients(const std::vector<std::string>& args) {
    if (!args.empty()) return CliUsageError("clients");
    TCliSession session;
    CreateRegistry = CreateDesktopRegistry;
    const TGlobals globals;
    for (const AnsiString& line : globals.MailClients)
        std::printf("%s\n", line.c_str());
    return 0;
}

const TCliCommand clientsCommand("clients", RunClients);

} // namespace
