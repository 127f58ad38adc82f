#pragma once
// The desktop's way of starting things, as an interface the platform layer
// fills in. Starting a program and opening a document or folder are separate
// operations: a file or folder text is never run, and no program is ever
// looked up by name. Nothing here passes a name through a command interpreter.

#include <cstdint>
#include <memory>
#include <vector>

#include "foundation/AnsiString.h"
#include "foundation/ChildProcess.h"

class TShell {
public:
    virtual ~TShell() = default;

    // A started program's process id, or 0 when the start gave no process
    // (a desktop entry or document handed to the desktop). Negative when
    // nothing started.
    using TProcessId = std::int64_t;

    // program is a path with a "/" to an executable plain file, or to a
    // desktop entry (".desktop"), which starts its application with the
    // arguments as files. A bare name is refused, never looked up.
    virtual TProcessId StartProgram(const AnsiString& program,
                                    const std::vector<AnsiString>& args) = 0;
    // An existing plain file, handed to the desktop's handler for its type;
    // never executed, whatever its mode bits.
    virtual bool OpenDocument(const AnsiString& path) = 0;
    // An existing folder, shown in the desktop's file manager.
    virtual bool OpenFolder(const AnsiString& path) = 0;
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
