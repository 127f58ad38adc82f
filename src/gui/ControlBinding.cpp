#include "gui/ControlBinding.h"

#include <QPointer>
#include <QWidget>

#include "platform/Dialogs.h"

Qt::CursorShape CursorShapeOf(TCursor cursor) {
    switch (cursor) {
    case crHourGlass:
        return Qt::WaitCursor;
    case crNo:
        return Qt::ForbiddenCursor;
    case crHandPoint:
        return Qt::PointingHandCursor;
    default:
        return Qt::ArrowCursor;
    }
}

void ShowUncaughtException(const char* message) {
    if (Dialogs) Dialogs->ShowException(message);
}

void BindCommonProperties(TControl& control, QWidget& widget, bool width) {
    auto apply = [&control, target = QPointer<QWidget>(&widget), width] {
        if (!target) return;
        target->setEnabled(control.Enabled());
        target->setCursor(CursorShapeOf(control.Cursor()));
        if (width && control.Width() > 0) target->setFixedWidth(control.Width());
        if (!control.Visible()) target->hide();
    };
    apply();
    const int token = control.Subscribe([apply](TControl&, TChange change) {
        if (change == TChange::Properties) apply();
    });
    QObject::connect(&widget, &QObject::destroyed,
                     [&control, token] { control.Unsubscribe(token); });
}
