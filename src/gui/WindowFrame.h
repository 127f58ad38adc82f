#pragma once
// What every window of the desktop program shares: the title names the
// program after the form's caption, the window fits the screen's free area
// (sizes from the models are logical pixels, so this holds at any scale
// factor), F1 is the window's Help button and its panel buttons have Alt
// hot keys.

#include <QRect>
#include <QString>

#include "foundation/AnsiString.h"

class QWidget;

QString WindowTitleOf(const AnsiString& caption);

// wanted, shrunk to the free area and moved into it; never below minimum
// unless the area itself is smaller.
QRect FittedGeometry(QRect wanted, QSize minimum, QRect available);

// Fits window into the free area of its screen.
void FitIntoScreen(QWidget& window);

// The keys every window has: F1 for its LMDpfHelp button, Alt hot keys.
void InstallWindowKeys(QWidget& window);
