#include "gui/WindowFrame.h"

#include <QScreen>
#include <QShortcut>
#include <QWidget>
#include <algorithm>

#include "gui/HotKeys.h"
#include "gui/PanelButtonWidget.h"
#include "gui/QtText.h"

QString WindowTitleOf(const AnsiString& caption) {
    return ToQString(caption) + QString::fromUtf8(" \u2014 Vellumdesk");
}

QRect FittedGeometry(QRect wanted, QSize minimum, QRect available) {
    const int width = std::min(std::max(wanted.width(), minimum.width()), available.width());
    const int height = std::min(std::max(wanted.height(), minimum.height()), available.height());
    const int x =
        std::clamp(wanted.x(), available.left(), available.left() + available.width() - width);
    const int y =
        std::clamp(wanted.y(), available.top(), available.top() + available.height() - height);
    return {x, y, width, height};
}

void FitIntoScreen(QWidget& window) {
    const QScreen* screen = window.screen();
    if (!screen) return;
    const QRect available = screen->availableGeometry();
    // The frame the window manager adds around the window takes room too.
    const QRect frame = window.frameGeometry(), inner = window.geometry();
    const QSize decoration = window.isVisible() ? frame.size() - inner.size() : QSize(0, 0);
    const QRect room(available.topLeft(), available.size() - decoration);
    const QRect fitted = FittedGeometry(inner, window.minimumSizeHint(), room);
    if (fitted.size() != inner.size()) window.resize(fitted.size());
    if (window.isVisible() && fitted.topLeft() != inner.topLeft()) window.move(fitted.topLeft());
}

void InstallWindowKeys(QWidget& window) {
    if (auto* help = window.findChild<TPanelButtonWidget*>("LMDpfHelp")) {
        auto* key = new QShortcut(QKeySequence(Qt::Key_F1), &window); // owned by window
        QObject::connect(key, &QShortcut::activated, help, [help] { help->Press(); });
    }
    THotKeys::Install(window);
}
