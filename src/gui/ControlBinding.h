#pragma once
// What every bound widget shows of its control: enabled, visible, cursor,
// size where the window sets one, and its help text as the accessible
// description. Cursors map to the desktop's shapes.

#include <QString>
#include <Qt>

#include "controls/Control.h"
#include "foundation/Exceptions.h"

class QWidget;

Qt::CursorShape CursorShapeOf(TCursor cursor);

void ShowUncaughtException(const char* message);

// Runs a person's action on the models. An exception that no handler caught
// is shown in the application's exception box and the program goes on: it
// must not unwind through Qt's event loop.
template <typename Action> void Guarded(Action&& action) {
    try {
        action();
    } catch (const Exception& e) {
        ShowUncaughtException(e.what());
    } catch (...) {
        ShowUncaughtException("");
    }
}
// The help text of a help context, from the application's help file; empty
// when it has none. Widgets read it out as their description.
QString HelpTextOf(int context);
// Describes root and every bound widget in it from its control's help text;
// for when the help file was found only after the widgets were bound.
void DescribeFromHelp(QWidget& root);

// Keeps widget's enabled state, visibility and cursor in step with control.
// width: also follow the control's width (for controls the window sizes).
void BindCommonProperties(TControl& control, QWidget& widget, bool width = false);
