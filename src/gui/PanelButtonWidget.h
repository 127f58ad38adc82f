#pragma once
// A panel that acts as a button, drawn from its TPanelButton: the caption on
// a gradient, and a frame whose inner and outer bevels are raised or lowered
// as the model says, so it looks pressed exactly while its handler runs.
// A click (press and release inside) runs the model's click.

#include <QFrame>

#include "controls/PanelButton.h"

class TPanelButtonWidget : public QFrame {
    Q_OBJECT
public:
    TPanelButtonWidget(TPanelButton& button, QWidget* parent = nullptr);
    ~TPanelButtonWidget() override;
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    TPanelButton& button;
    int subscription = 0;
    bool mouseDown = false;
};
