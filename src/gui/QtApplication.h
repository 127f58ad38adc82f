#pragma once
// The application object of the desktop program, on Qt's event loop: a scan
// that yields lets the window paint and the user click.

#include <QElapsedTimer>

#include "platform/Application.h"

class TQtApplication : public TApplication {
public:
    TQtApplication();
    void ProcessMessages() override;
    void WaitForEvents(std::uint32_t ms) override;
    bool Terminated() const override { return terminated; }
    void Terminate() override;
    std::uint32_t GetTickCount() const override;
    void Post(std::function<void()> event) override;
    TPoint CursorPos() const override;

private:
    QElapsedTimer clock;
    bool terminated = false;
};
