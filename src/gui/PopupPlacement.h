#pragma once
// Where a popup menu opens. The models ask for a menu at a screen point, the
// bottom-left corner of the button that opens it; the menu opens there, or
// above the button when the screen ends below it, and never past the sides.

#include <QPoint>
#include <QRect>
#include <QSize>

// at: the asked point; menu: the menu's size; available: the screen's free
// area; anchorTop: the top of the widget whose bottom-left corner at is
// (at's own y when at belongs to no widget).
QPoint PopupPosition(QPoint at, QSize menu, QRect available, int anchorTop);

// The top edge of the widget on the screen whose bottom-left corner is at;
// at.y() when there is none.
int AnchorTopAt(QPoint at);

// The free area of the screen that holds at (the primary screen's when none).
QRect AvailableAreaAt(QPoint at);
