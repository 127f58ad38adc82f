#include "gui/PanelButtonWidget.h"

#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>

#include "gui/ControlBinding.h"
#include "gui/QtText.h"

namespace {

// Light on the top-left and dark on the bottom-right is raised; the reverse, lowered.
void DrawBevel(QPainter& painter, QRect rect, TBevelCut cut, const QPalette& palette) {
    if (cut == bvNone) return;
    const QColor light = palette.color(QPalette::Light), dark = palette.color(QPalette::Dark);
    const QColor topLeft = cut == bvRaised ? light : dark;
    const QColor bottomRight = cut == bvRaised ? dark : light;
    painter.setPen(topLeft);
    painter.drawLine(rect.topLeft(), rect.topRight());
    painter.drawLine(rect.topLeft(), rect.bottomLeft());
    painter.setPen(bottomRight);
    painter.drawLine(rect.bottomLeft(), rect.bottomRight());
    painter.drawLine(rect.topRight(), rect.bottomRight());
}

} // namespace

TPanelButtonWidget::TPanelButtonWidget(TPanelButton& button, QWidget* parent)
    : QFrame(parent), button(button) {
    setObjectName(QString::fromStdString(button.Name()));
    setMinimumHeight(26);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    subscription = button.Subscribe([this](TControl&, TChange) { update(); });
    BindCommonProperties(button, *this, true);
}

TPanelButtonWidget::~TPanelButtonWidget() {
    button.Unsubscribe(subscription);
}

QSize TPanelButtonWidget::sizeHint() const {
    const int width = button.Width() > 0
                          ? button.Width()
                          : fontMetrics().horizontalAdvance(ToQString(button.Caption())) + 16;
    return {width, 26};
}

void TPanelButtonWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const bool pressed = button.BevelInner() == bvLowered && button.BevelOuter() == bvLowered;
    QLinearGradient fill(0, 0, 0, height());
    const QColor base = palette().color(QPalette::Button);
    fill.setColorAt(0, pressed ? base.darker(110) : base.lighter(115));
    fill.setColorAt(1, pressed ? base.lighter(105) : base.darker(108));
    painter.fillRect(rect(), fill);
    DrawBevel(painter, rect().adjusted(0, 0, -1, -1), button.BevelOuter(), palette());
    DrawBevel(painter, rect().adjusted(1, 1, -2, -2), button.BevelInner(), palette());
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
    painter.drawText(rect().translated(pressed ? 1 : 0, pressed ? 1 : 0), Qt::AlignCenter,
                     ToQString(button.Caption()));
}

void TPanelButtonWidget::mousePressEvent(QMouseEvent* event) {
    mouseDown = event->button() == Qt::LeftButton;
}

void TPanelButtonWidget::mouseReleaseEvent(QMouseEvent* event) {
    const bool clicked =
        mouseDown && event->button() == Qt::LeftButton && rect().contains(event->pos());
    mouseDown = false;
    if (clicked) Guarded([this] { button.Click(); });
}
