#pragma once
// The sub-commands of vellumdesk-cli. Each lives in a file of its own and
// registers itself with a static TCliCommand, so main() needs no list of them.

#include <string>
#include <vector>

using TCliRun = int (*)(const std::vector<std::string>& args);

struct TCliCommand {
    TCliCommand(const char* name, const char* usage, TCliRun run);
    const char* Name;
    const char* Usage;
    TCliRun Run;
};

const std::vector<const TCliCommand*>& CliCommands();
