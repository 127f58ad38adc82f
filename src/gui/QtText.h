#pragma once
// Bytes to screen text and back. The program's text is bytes; the screen
// shows them as UTF-8 when they are valid UTF-8, else as Windows-1252, and
// reads typed text back as UTF-8.

#include <QString>

#include "foundation/AnsiString.h"

QString ToQString(const AnsiString& text);
AnsiString FromQString(const QString& text);
