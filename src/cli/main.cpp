// vellumdesk-cli: the program's core for scripts, benchmarks and terminals.

#include <cstdio>
#include <exception>
#include <string_view>

#include "cli/CliCommand.h"
#include "cli/CliHelp.h"
#include "inbox/ProgramEntry.h"
#include "platform/linux/CurlSmtp.h"
#include "script/FieldEscape.h"

int main(int argc, char** argv) {
    if (argc < 2) return CliUsageError("");
    CreateSmtpClient = CreateCurlSmtp;
    const std::string_view name = argv[1];
    if (name == "--help" || name == "-h") {
        PrintCliUsage(stdout);
        return 0;
    }
    if (name == "--version") {
        std::printf("vellumdesk-cli %s\n", VELLUMDESK_VERSION);
        return 0;
    }
    const TCliCommand* command = FindCliCommand(name);
    if (!command) {
        std::fprintf(stderr, "vellumdesk-cli: unknown %s '%s'\n",
                     name.starts_with('-') ? "option" : "command", argv[1]);
        return CliUsageError("");
    }
    const std::vector<std::string> args(argv + 2, argv + argc);
    if (const TCliUsage* usage = FindCliUsage(name)) {
        if (const int status = CheckCliOptions(*usage, args); status >= 0) return status;
    }
    // A command that breaks off on an internal error (memory that runs out)
    // says so and ends with its own status, never with an abort.
    try {
        return command->Run(args);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "vellumdesk-cli: %s: internal error: %s\n", argv[1],
                     Escaped(*e.what() ? e.what() : "unknown", TEscape::Controls).c_str());
    } catch (...) {
        std::fprintf(stderr, "vellumdesk-cli: %s: unknown internal error\n", argv[1]);
    }
    return uncaughtExitCode;
}
