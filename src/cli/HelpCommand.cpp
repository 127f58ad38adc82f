// vellumdesk-cli help: the usage of every command, or of one.

#include <cstdio>

#include "cli/CliCommand.h"
#include "cli/CliHelp.h"

namespace {

int RunHelp(const std::vector<std::string>& args) {
    if (args.empty()) {
        PrintCliUsage(stdout);
        return 0;
    }
    if (args.size() > 1) return CliUsageError("help");
    const TCliCommand* command = FindCliCommand(args[0]);
    const TCliUsage* usage = FindCliUsage(args[0]);
    if (command && usage) {
        PrintCommandUsage(stdout, *usage);
        return 0;
    }
    if (command) {
        std::printf("usage: vellumdesk-cli %s %s\n", command->Name, command->Usage);
        return 0;
    }
    std::fprintf(stderr, "vellumdesk-cli help: unknown command '%s'\n", args[0].c_str());
    return CliUsageError("");
}

const TCliCommand helpCommand("help", RunHelp);

} // namespace
