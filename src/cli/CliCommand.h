#pragma once
// The sub-commands of vellumdesk-cli. Each lives in a file of its own and
// registers itself with a static TCliCommand, so main() needs no list of them.
// What a command takes and does is told in the usage table (CliUsage.h).

#include <string>
#include <string_view>
#include <vector>

using TCliRun = int (*)(const std::vector<std::string>& args);

struct TCliCommand {
    TCliCommand(const char* name, TCliRun run);
    // usage: the synopsis shown for a command the usage table does not hold.
    TCliCommand(const char* name, const char* usage, TCliRun run);
    const char* Name;
    const char* Usage;
    TCliRun Run;
};

const std::vector<const TCliCommand*>& CliCommands();
// The command of that name; nullptr when there is none.
const TCliCommand* FindCliCommand(std::string_view name);
