#include "platform/Dialogs.h"

TDialogs* Dialogs = nullptr;
