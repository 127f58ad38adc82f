#include "gui/QtApplication.h"

#include <QApplication>
#include <QCursor>
#include <QTimer>

TQtApplication::TQtApplication() {
    clock.start();
}

void TQtApplication::ProcessMessages() {
    QCoreApplication::processEvents();
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
