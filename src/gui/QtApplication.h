#pragma once
// The application object of the desktop program, on Qt's event loop: a scan
// that yields lets the window paint and the user click.

#include <QElapsedTimer>
#include <QList>
#include <QPointer>
#include <QWidget>

#include "platform/Application.h"

class TQtApplication : public TApplication {
public:
    TQtApplication();
    void ProcessMessages() override;
    bool Terminated() const override { return terminated; }
    void Terminate() override;
    std::uint32_t GetTickCount() const override;
    void Post(std::function<void()> event) override;
    TPoint CursorPos() const override;
    void NormalizeAllTopMosts() override;
    void RestoreTopMosts() override;
    void BringToFront() override;

private:
    // The windows NormalizeAllTopMosts took off the top, to give it back.
    QList<QPointer<QWidget>> normalized;
    QElapsedTimer clock;
    bool terminated = false;
};
