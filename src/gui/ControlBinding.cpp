#include "gui/ControlBinding.h"

#include <QPointer>
#include <QVariant>
#include <QWidget>

#include "foundation/StringList.h"
#include "gui/QtText.h"
#include "platform/Application.h"
#include "platform/Dialogs.h"

namespace {

// The help context of a bound widget, kept for describing it again later.
constexpr const char* helpContextProperty = "vellumdeskHelpContext";

} // namespace

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

QString HelpTextOf(int context) {
    if (context <= 0 || !Application || Application->HelpFile.IsEmpty()) return {};
    TStringList help;
    try {
        help.LoadFromFile(Application->HelpFile);
    } catch (const Exception&) {
        return {};
    }
    return ToQString(help.GetValue(AnsiString(static_cast<unsigned long>(context))));
}

void DescribeFromHelp(QWidget& root) {
    QList<QWidget*> widgets = root.findChildren<QWidget*>();
    widgets.prepend(&root);
    for (QWidget* widget : widgets) {
        const QString text = HelpTextOf(widget->property(helpContextProperty).toInt());
        if (!text.isEmpty()) widget->setAccessibleDescription(text);
    }
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
    widget.setProperty(helpContextProperty, control.HelpContext());
    DescribeFromHelp(widget);
    const int token = control.Subscribe([apply](TControl&, TChange change) {
        if (change == TChange::Properties) apply();
    });
    QObject::connect(&widget, &QObject::destroyed,
                     [&control, token] { control.Unsubscribe(token); });
}
