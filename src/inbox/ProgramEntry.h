#pragma once
// The entry sequence of the program: one instance at a time, the application
// object, the windows in their order, the message loop, and the exception box
// for what no handler caught. The desktop program and a scripted session
// differ only in the parts given here.

#include <functional>

#include "foundation/AnsiString.h"

class TInboxFrm;

struct TProgramParts {
    // Take the single-instance lock (the desktop program does; a script does not).
    bool singleInstance = true;
    // Creates the application object and the platform services. Runs only
    // once the lock is held, so a second start never builds a screen.
    std::function<void()> initialiseApplication;
    // Runs when the lock shows that another instance runs, before the start ends.
    std::function<void()> alreadyRunning;
    // Runs the message loop until the main window closes.
    std::function<void(TInboxFrm& mainWindow)> run;
    // Hears the text of an exception that no handler caught, after its box.
    std::function<void(const AnsiString& message)> uncaught;
};

// The name of the single-instance lock.
inline constexpr const char* instanceLockName = "VellumdeskMgr";

// The exit status of a run that an exception no handler caught ended.
inline constexpr int uncaughtExitCode = 3;

// Returns 0, a second start included, or uncaughtExitCode once an exception
// that no handler caught has been shown.
int RunProgram(const TProgramParts& parts);
