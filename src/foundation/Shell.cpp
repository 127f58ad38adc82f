#include "foundation/Shell.h"

TShell* Shell = nullptr;
