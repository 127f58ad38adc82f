#include "gui/QtApplication.h"

#include <QApplication>
#include <QCursor>
#include <QEventLoop>
#include <QTimer>
#include <algorithm>
#include <cstdint>

TQtApplication::TQtApplication() {
    clock.start();
}

void TQtApplication::ProcessMessages() {
    QCoreApplication::processEvents();
}

// A timer bounds the sleep: processEvents then returns after the first batch
// of events, the timer's own at the latest.
void TQtApplication::WaitForEvents(std::uint32_t ms) {
    QTimer wake;
    wake.setSingleShot(true);
    wake.start(static_cast<int>(std::min<std::uint32_t>(ms, INT32_MAX)));
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

void TQtApplication::Terminate() {
    terminated = true;
    QCoreApplication::quit();
}

std::uint32_t TQtApplication::GetTickCount() const {
    return static_cast<std::uint32_t>(clock.elapsed());
}

void TQtApplication::Post(std::function<void()> event) {
    QTimer::singleShot(0, qApp, std::move(event));
}

TPoint TQtApplication::CursorPos() const {
    const QPoint at = QCursor::pos();
    return {at.x(), at.y()};
}
