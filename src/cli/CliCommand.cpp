#include "cli/CliCommand.h"

namespace {

std::vector<const TCliCommand*>& Registry() {
    static std::vector<const TCliCommand*> commands;
    return commands;
}

} // namespace

TCliCommand::TCliCommand(const char* name, TCliRun run) : TCliCommand(name, "", run) {}

TCliCommand::TCliCommand(const char* name, const char* usage, TCliRun run)
    : Name(name), Usage(usage), Run(run) {
    Registry().push_back(this);
}

const std::vector<const TCliCommand*>& CliCommands() {
    return Registry();
}

const TCliCommand* FindCliCommand(std::string_view name) {
    for (const TCliCommand* command : Registry())
        if (name == command->Name) return command;
    return nullptr;
}
