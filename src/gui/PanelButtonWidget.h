#pragma once
// A panel that acts as a button, drawn from its TPanelButton: the caption on
// a gradient, and a frame whose inner and outer bevels are raised or lowered
// as the model says, so it looks pressed exactly while its handler runs.
// A click (press and release inside), Space or Enter while it has the focus,
// and its Alt hot key all run the model's click, so the busy refusal holds for
// every way in. The widget also tells the model where it stands on the
// screen and how high it is, so a menu the model opens lands under it.

#include <QFrame>
#include <QPointer>
#include <memory>

#include "controls/PanelButton.h"

class QShortcut;

class TPanelButtonWidget : public QFrame {
    Q_OBJECT
public:
    TPanelButtonWidget(TPanelButton& button, QWidget* parent = nullptr);
    ~TPanelButtonWidget() override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    TPanelButton& Model() { return button; }
    // What a click does: the model's click, with any uncaught error shown.
    void Press();
    // The small menu button beside this one: Alt+Down opens its menu.
    void SetMenuButton(TPanelButtonWidget* menu);
    TPanelButtonWidget* MenuButton() const { return menuButton; }
    bool IsMenuButton() const { return menuOwner != nullptr; }
    // The letter of the caption that Alt opens this button with; 0 for none.
    void SetHotKey(QChar letter);
    QChar HotKey() const { return hotKey; }
    // The caption as read out: a menu button is named after its partner.
    QString SpokenName() const;

signals:
    void captionChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void FollowModel();
    QString CaptionWithMark() const;

    TPanelButton& button;
    QPointer<TPanelButtonWidget> menuButton, menuOwner;
    std::unique_ptr<QShortcut> hotKeyShortcut;
    QChar hotKey;
    AnsiString shownCaption;
    int shownWidth = 0;
    int subscription = 0;
    bool mouseDown = false;
};
