#pragma once
// The application object: the message loop that long work yields to, the
// terminated state, the tick count, the program's own path, the screen cursor.
// The desktop program runs a Qt implementation; tests and scripts run the
// headless one, whose loop is a queue of posted events.

#include <cstdint>
#include <functional>

#include "controls/Cursor.h"
#include "controls/Form.h"
#include "foundation/AnsiString.h"
#include "foundation/RunningApp.h"

class TApplication : public TRunningApp, public TModalHost {
public:
    // The newest application object runs the modal loops of shown forms.
    TApplication() { TForm::ModalHost = this; }
    ~TApplication() override {
        if (TForm::ModalHost == this) TForm::ModalHost = nullptr;
    }
    // The modal form open on top, or null.
    TForm* ModalForm() const { return TForm::TopModalForm(); }

    virtual void Terminate() = 0;
    // Queues work to run at the next ProcessMessages (a click, a timer).
    virtual void Post(std::function<void()> event) = 0;
    // Where the mouse is, in screen coordinates.
    virtual TPoint CursorPos() const { return {}; }
    // Around a started program: take this program's windows out of the
    // always-on-top state so the program can come in front, give that state
    // back, and bring the main window to the front.
    virtual void NormalizeAllTopMosts() {}
    virtual void RestoreTopMosts() {}
    virtual void BringToFront() {}

    // A message of the window system that the program may look at first:
    // the title bar's help button arrives as a non-client press (161) with
    // hit code 21.
    struct TMessage {
        int Message = 0;
        int HitTest = 0;
    };
    static constexpr int wmNcLButtonDown = 161;
    static constexpr int htHelp = 21;
    static constexpr int helpContextPopup = 8;
    static constexpr int helpKey = 257;

    std::function<void(const TMessage& message, bool& handled)> OnMessage;
    // The help hook: command and data of a help request. Clearing callHelp
    // keeps the application from its own help handling.
    std::function<bool(int command, long data, bool& callHelp)> OnHelp;

    void DispatchMessage(const TMessage& message) {
        bool handled = false;
        if (OnMessage) OnMessage(message, handled);
    }
    // A help request on a keyword. The help file has no keyword index, so the
    // request reaches the hook with the text's address as data, as it always did.
    bool HelpKeyword(const AnsiString& keyword) {
        bool callHelp = true;
        return OnHelp && OnHelp(helpKey, reinterpret_cast<long>(keyword.c_str()), callHelp);
    }

    AnsiString Title;    // "Vellumdesk"
    AnsiString HelpFile; // relative at start, made full by InitFolders
    TCursor ScreenCursor = crDefault;
};

// The one application object of the process. Set by main() or by a test.
extern TApplication* Application;
