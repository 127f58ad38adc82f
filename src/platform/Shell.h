#pragma once
// The shell interface lives with the services that use it; the platform
// layer fills it in (platform/linux/LinuxShell.h).

#include "foundation/Shell.h"
