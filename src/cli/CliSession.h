#pragma once
// The process-wide objects a command of vellumdesk-cli runs with: a headless
// application object, the shell of this desktop and Utils. They live as long
// as the session object. The session works in the data folder: make every
// path of the command line absolute before the session starts.

#include <memory>
#include <string>
#include <vector>

#include "foundation/Utils.h"
#include "platform/HeadlessApplication.h"
#include "platform/Shell.h"

// The desktop program beside this one: its hand-off file, log, help and
// extensions are the ones a session of the window logic uses.
AnsiString DesktopProgramPath();

// "--program PATH" among a command's arguments: the session runs as the
// desktop program at PATH would. Removes the two words; false if PATH is missing.
bool TakeProgramOption(std::vector<std::string>& args, AnsiString& program);

class TCliSession {
public:
    TCliSession();
    ~TCliSession();
    TCliSession(const TCliSession&) = delete;
    TCliSession& operator=(const TCliSession&) = delete;

    THeadlessApplication& App() { return *app; }

private:
    std::unique_ptr<THeadlessApplication> app;
    std::unique_ptr<TShell> shell;
    std::unique_ptr<TUtils> utils;
};
