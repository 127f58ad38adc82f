#pragma once
// What every bound widget shows of its control: enabled, visible, cursor,
// size where the window sets one. Cursors map to the desktop's shapes.

#include <Qt>

#include "controls/Control.h"

class QWidget;

Qt::CursorShape CursorShapeOf(TCursor cursor);
// Keeps widget's enabled state, visibility and cursor in step with control.
// width: also follow the control's width (for controls the window sizes).
void BindCommonProperties(TControl& control, QWidget& widget, bool width = false);
