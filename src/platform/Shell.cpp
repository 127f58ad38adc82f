#include "platform/Shell.h"

TShell* Shell = nullptr;
