#pragma once
// The full path of the running program, as argument 0 would name it on the
// old system (which always gave a full path).

#include "foundation/AnsiString.h"

// The path of the executable; argv0 when the system cannot say.
AnsiString OwnProgramPath(const char* argv0 = nullptr);
