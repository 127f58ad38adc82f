#include "gui/PanelBinding.h"

#include <QLabel>
#include <QPointer>

#include "gui/ControlBinding.h"
#include "gui/QtText.h"

void BindPanel(TPanel& panel, QLabel& label) {
    label.setText(ToQString(panel.Caption()));
    const int token =
        panel.Subscribe([&panel, target = QPointer<QLabel>(&label)](TControl&, TChange) {
            if (target) target->setText(ToQString(panel.Caption()));
        });
    QObject::connect(&label, &QObject::destroyed, [&panel, token] { panel.Unsubscribe(token); });
    BindCommonProperties(panel, label);
}
