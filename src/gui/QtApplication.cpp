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

void TQtApplication::RegisterModalView(const std::string& formName, TModalViewFactory factory) {
    views[formName] = std::move(factory);
}

void TQtApplication::RunModal(TForm& form) {
    const auto found = views.find(form.Name());
    if (found == views.end()) {
        form.WindowClose();
        return;
    }
    const std::unique_ptr<TModalDialog> dialog = found->second(form);
    if (form.Visible() && !terminated) dialog->exec();
}

void TQtApplication::NormalizeAllTopMosts() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible() || !(window->windowFlags() & Qt::WindowStaysOnTopHint)) continue;
        normalized.append(window);
        window->setWindowFlag(Qt::WindowStaysOnTopHint, false);
        window->show(); // changing the flags hides a window
    }
}

void TQtApplication::RestoreTopMosts() {
    for (const QPointer<QWidget>& window : std::as_const(normalized)) {
        if (!window) continue;
        window->setWindowFlag(Qt::WindowStaysOnTopHint, true);
        window->show();
    }
    normalized.clear();
}

// The modal dialog on top, if any, else the main window.
void TQtApplication::BringToFront() {
    QWidget* window = QApplication::activeModalWidget();
    if (!window) window = QApplication::activeWindow();
    if (!window) {
        for (QWidget* candidate : QApplication::topLevelWidgets())
            if (candidate->isVisible() && candidate->isWindow()) {
                window = candidate;
                break;
            }
    }
    if (!window) return;
    window->raise();
    window->activateWindow();
}
