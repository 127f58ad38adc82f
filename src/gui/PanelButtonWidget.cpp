#include "gui/PanelButtonWidget.h"

#include <QKeyEvent>
#include <QLinearGradient>
#include <QPainter>
#include <QShortcut>
#include <QStyleOptionFocusRect>

#include "controls/PopupMenu.h"
#include "gui/ControlBinding.h"
#include "gui/QtText.h"

namespace {

constexpr int buttonHeight = 26;
constexpr int captionPadding = 16;

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
    setMinimumHeight(buttonHeight);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    shownCaption = button.Caption();
    shownWidth = button.Width();
    subscription = button.Subscribe([this](TControl&, TChange) { FollowModel(); });
    button.ScreenMapper = [this](TPoint client) {
        const QPoint at = mapToGlobal(QPoint(client.X, client.Y));
        return TPoint{at.x(), at.y()};
    };
    BindCommonProperties(button, *this);
    setAccessibleName(SpokenName());
}

TPanelButtonWidget::~TPanelButtonWidget() {
    button.ScreenMapper = nullptr;
    button.Unsubscribe(subscription);
}

void TPanelButtonWidget::FollowModel() {
    update();
    if (shownCaption == button.Caption() && shownWidth == button.Width()) return;
    updateGeometry();
    shownWidth = button.Width();
    if (shownCaption == button.Caption()) return;
    shownCaption = button.Caption();
    setAccessibleName(SpokenName());
    emit captionChanged();
}

QString TPanelButtonWidget::SpokenName() const {
    if (menuOwner) return menuOwner->SpokenName() + " menu";
    return ToQString(CaptionWithoutHotKey(button.Caption())).trimmed();
}

void TPanelButtonWidget::SetMenuButton(TPanelButtonWidget* menu) {
    menuButton = menu;
    if (!menu) return;
    menu->menuOwner = this;
    menu->setAccessibleName(menu->SpokenName());
}

void TPanelButtonWidget::SetHotKey(QChar letter) {
    if (letter == hotKey && (hotKeyShortcut || letter.isNull())) return;
    hotKey = letter;
    hotKeyShortcut.reset();
    if (!letter.isNull()) {
        hotKeyShortcut = std::make_unique<QShortcut>(
            QKeySequence(Qt::ALT | static_cast<Qt::Key>(letter.toUpper().unicode())), this);
        connect(hotKeyShortcut.get(), &QShortcut::activated, this, [this] {
            setFocus(Qt::ShortcutFocusReason);
            Press();
        });
    }
    update();
}

// The design width is the preferred one; a narrow screen may take the
// button down to its caption.
QSize TPanelButtonWidget::sizeHint() const {
    return {std::max(button.Width(), minimumSizeHint().width()), buttonHeight};
}

QSize TPanelButtonWidget::minimumSizeHint() const {
    const QString caption = ToQString(CaptionWithoutHotKey(button.Caption())).trimmed();
    return {fontMetrics().horizontalAdvance(caption) + captionPadding, buttonHeight};
}

// The caption with Qt's mark before the hot-key letter, so it is underlined.
QString TPanelButtonWidget::CaptionWithMark() const {
    QString caption = ToQString(CaptionWithoutHotKey(button.Caption()));
    caption.replace("&", "&&");
    if (hotKey.isNull()) return caption;
    const qsizetype at = caption.indexOf(hotKey, 0, Qt::CaseInsensitive);
    if (at >= 0) caption.insert(at, '&');
    return caption;
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
    painter.drawText(rect().translated(pressed ? 1 : 0, pressed ? 1 : 0),
                     Qt::AlignCenter | Qt::TextShowMnemonic, CaptionWithMark());
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = rect().adjusted(3, 3, -3, -3);
        focus.backgroundColor = base;
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
    }
}

void TPanelButtonWidget::Press() {
    Guarded([this] { button.Click(); });
}

void TPanelButtonWidget::mousePressEvent(QMouseEvent* event) {
    mouseDown = event->button() == Qt::LeftButton;
}

void TPanelButtonWidget::mouseReleaseEvent(QMouseEvent* event) {
    const bool clicked =
        mouseDown && event->button() == Qt::LeftButton && rect().contains(event->pos());
    mouseDown = false;
    if (clicked) Press();
}

void TPanelButtonWidget::keyPressEvent(QKeyEvent* event) {
    const bool altDown = event->key() == Qt::Key_Down && event->modifiers() == Qt::AltModifier;
    if (altDown && menuButton) {
        menuButton->Press();
        return;
    }
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (event->modifiers() == Qt::NoModifier || event->modifiers() == Qt::KeypadModifier) {
            if (!event->isAutoRepeat()) Press();
            return;
        }
        break;
    default:
        break;
    }
    QFrame::keyPressEvent(event);
}

// The model's height is the widget's, so the model's "under the button" is.
void TPanelButtonWidget::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    button.SetHeight(height());
}
