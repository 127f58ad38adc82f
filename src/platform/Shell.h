#pragma once
// The desktop's way of starting things: a program with its arguments, or a
// document or folder with the handler the desktop uses for it. Nothing here
// ever passes a file name through a command interpreter.

#include <cstdint>
#include <memory>
#include <vector>

#include "foundation/AnsiString.h"
#include "platform/ChildProcess.h"

class TShell {
public:
    virtual ~TShell() = default;

    // A started program's process id, or 0 when the start gave no process
    // (a document handed to the desktop). Negative when nothing started.
    using TProcessId = std::int64_t;

    // file is a program (a path, or a bare name looked up in PATH), a document
    // or a folder. Arguments go only to a program.
    virtual TProcessId Open(const AnsiString& file, const std::vector<AnsiString>& args) = 0;
    // Waits at most ms for the process to end; true if it has ended.
    virtual bool WaitForExit(TProcessId process, std::uint32_t ms) = 0;
    // The exit code of an ended process, or -1 while it runs or when unknown.
    virtual int ExitCode(TProcessId process) = 0;
    // Starts program (a full path, never looked up by name) as a child this
    // program may wait for; null when it could not be started.
    virtual std::unique_ptr<TChildProcess> StartChild(const AnsiString& program,
                                                      const std::vector<AnsiString>& args) {
        (void)program;
        (void)args;
        return nullptr;
    }
};

// The one shell of the process. Set by main() or by a test.
extern TShell* Shell;
