// vellumdesk-cli: the program's core for scripts, benchmarks and terminals.

#include <cstdio>
#include <cstring>

#include "cli/CliCommand.h"
#include "platform/linux/CurlSmtp.h"

namespace {

std::vector<const TCliCommand*>& Registry() {
    static std::vector<const TCliCommand*> commands;
    return commands;
}

int Usage() {
    std::fprintf(stderr, "usage: vellumdesk-cli COMMAND [ARG...]\n");
    for (const TCliCommand* command : Registry())
        std::fprintf(stderr, "  %s %s\n", command->Name, command->Usage);
    return 2;
}

} // namespace

TCliCommand::TCliCommand(const char* name, const char* usage, TCliRun run)
    : Name(name), Usage(usage), Run(run) {
    Registry().push_back(this);
}

const std::vector<const TCliCommand*>& CliCommands() {
    return Registry();
}

int main(int argc, char** argv) {
    if (argc < 2) return Usage();
    CreateSmtpClient = CreateCurlSmtp;
    for (const TCliCommand* command : Registry())
        if (std::strcmp(command->Name, argv[1]) == 0)
            return command->Run(std::vector<std::string>(argv + 2, argv + argc));
    std::fprintf(stderr, "vellumdesk-cli: unknown command '%s'\n", argv[1]);
    return Usage();
}
