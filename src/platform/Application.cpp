#include "platform/Application.h"

TApplication* Application = nullptr;
