#pragma once
// The application object: the message loop that long work yields to, the
// terminated state, the tick count, the program's own path, the screen cursor.
// The desktop program runs a Qt implementation; tests and scripts run the
// headless one, whose loop is a queue of posted events.

#include <cstdint>
#include <functional>

#include "controls/Cursor.h"
#include "foundation/AnsiString.h"

class TApplication {
public:
    virtual ~TApplication() = default;

    // Runs the events that are waiting, then returns.
    virtual void ProcessMessages() = 0;
    virtual bool Terminated() const = 0;
    virtual void Terminate() = 0;
    // Milliseconds since some fixed moment; wraps after about 49 days.
    virtual std::uint32_t GetTickCount() const = 0;
    // Queues work to run at the next ProcessMessages (a click, a timer).
    virtual void Post(std::function<void()> event) = 0;

    AnsiString ExeName;  // the program's own full path, argument 0
    AnsiString Title;    // "Vellumdesk"
    AnsiString HelpFile; // relative at start, made full by InitFolders
    TCursor ScreenCursor = crDefault;
};

// The one application object of the process. Set by main() or by a test.
extern TApplication* Application;
