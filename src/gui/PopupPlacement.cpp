#include "gui/PopupPlacement.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>
#include <algorithm>

QPoint PopupPosition(QPoint at, QSize menu, QRect available, int anchorTop) {
    int y = at.y();
    if (y + menu.height() > available.bottom() + 1 && anchorTop - menu.height() >= available.top())
        y = anchorTop - menu.height();
    y = std::clamp(y, available.top(),
                   std::max(available.top(), available.bottom() + 1 - menu.height()));
    const int x = std::clamp(at.x(), available.left(),
                             std::max(available.left(), available.right() + 1 - menu.width()));
    return {x, y};
}

int AnchorTopAt(QPoint at) {
    for (QWidget* widget = QApplication::widgetAt(at - QPoint(0, 1)); widget;
         widget = widget->parentWidget()) {
        if (widget->mapToGlobal(QPoint(0, widget->height())) == at)
            return widget->mapToGlobal(QPoint(0, 0)).y();
        if (widget->isWindow()) break;
    }
    return at.y();
}

QRect AvailableAreaAt(QPoint at) {
    const QScreen* screen = QGuiApplication::screenAt(at);
    if (!screen) screen = QGuiApplication::primaryScreen();
    return screen ? screen->availableGeometry() : QRect(at, QSize(1, 1));
}
