#pragma once
// A program this one starts and waits for, such as a help viewer: started
// directly with an argument vector, never through a command interpreter.
//
// There is no input-idle state on this desktop that a program could be asked
// about, so "up and running its message loop" is something the child says:
// it finds the number of a writable descriptor in the environment variable
// VELLUMDESK_READY_FD and writes one byte to it once its event loop runs (a
// Qt program: from a zero-time timer after its window is shown). A program
// that does not know this never says so, and counts as one without a message
// loop: nobody waits for it beyond the input-idle wait.
//
// Every child is collected exactly once: by Running() when it has ended, or,
// when the last owner lets go of a child still running, by a small thread that
// waits for that one process, so no child is left behind as a zombie.

#include <cstdint>

#include "foundation/AnsiString.h"

class TChildProcess {
public:
    virtual ~TChildProcess() = default;

    enum class TInputIdle {
        Ready,    // the child said its message loop runs
        TimedOut, // it has said nothing yet and still runs
        Failed,   // it ended, or closed the descriptor, without saying so
    };

    static constexpr const char* ReadyVariable = "VELLUMDESK_READY_FD";

    virtual std::int64_t Id() const = 0;
    // Waits at most ms for the child to say it is up.
    virtual TInputIdle WaitForInputIdle(std::uint32_t ms) = 0;
    // False once the child has ended; the first such answer collects it.
    virtual bool Running() = 0;
    // Waits at most ms for the child to end, without collecting it.
    virtual void WaitForEnd(std::uint32_t ms) = 0;
    // The exit code once ended; -1 while it runs.
    virtual int ExitCode() const = 0;
};
