#pragma once
// The running program as the foundation's services see it: its message loop,
// its clock and its own path. The application object of the platform layer is
// one; the newest that still lives is the one TUtils uses, so a test or
// session that makes its own application object needs no setter.

#include <cstdint>

#include "foundation/AnsiString.h"

class TRunningApp {
public:
    TRunningApp();
    virtual ~TRunningApp();
    TRunningApp(const TRunningApp&) = delete;
    TRunningApp& operator=(const TRunningApp&) = delete;

    // Runs the events that are waiting, then returns.
    virtual void ProcessMessages() = 0;
    // Sleeps until an event is waiting or ms have passed, whichever comes
    // first; may run the events it woke for. Costs no processor time.
    virtual void WaitForEvents(std::uint32_t ms) = 0;
    virtual bool Terminated() const = 0;
    // Milliseconds since some fixed moment; wraps after about 49 days.
    virtual std::uint32_t GetTickCount() const = 0;

    // The newest that lives, or null.
    static TRunningApp* Running() { return running; }

    AnsiString ExeName; // the program's own full path, argument 0

private:
    static inline TRunningApp* running = nullptr;
    TRunningApp* previous = nullptr;
};
