// vellumdesk-cli script: one session of the desktop program, driven by a
// script file ("-" for standard input) instead of a person and a screen.

#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>

#include "cli/CliCommand.h"
#include "cli/CliHelp.h"
#include "cli/CliSession.h"
#include "foundation/FileDescriptor.h"
#include "platform/ProgramPath.h"
#include "platform/linux/CanberraSound.h"
#include "platform/linux/DesktopMailClients.h"
#include "platform/linux/LinuxShell.h"
#include "script/ScriptSession.h"

namespace {

bool ReadScript(const std::string& name, std::string& text) {
    if (name == "-") {
        text.assign(std::istreambuf_iterator<char>(std::cin), {});
        return true;
    }
    // A script may come from a pipe (a shell's <(...)), so it is read as a stream.
    std::ifstream file(name, std::ios::binary);
    if (!file) return false;
    text.assign(std::istreambuf_iterator<char>(file), {});
    return !file.bad();
}

int RunScript(const std::vector<std::string>& arguments) {
    std::vector<std::string> args = arguments;
    AnsiString program;
    if (!TakeProgramOption(args, program) || args.size() != 1) return CliUsageError("script");
    std::string text;
    if (!ReadScript(args[0], text)) {
        std::fprintf(stderr, "script: cannot read %s\n", args[0].c_str());
        return 2;
    }
    std::vector<TScriptCommand> commands;
    TScriptError error;
    if (!ParseScript(text, commands, error)) {
        std::fprintf(stderr, "line %d: %s\n", error.Line, error.Reason.c_str());
        return 2;
    }
    TLinuxShell shell;
    TCanberraSound sound;
    TScriptSession session(shell, CreateDesktopRegistry, program, stdout, &sound);
    return session.Run(commands, stderr);
}

const TCliCommand scriptCommand("script", RunScript);

} // namespace
