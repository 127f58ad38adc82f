#pragma once
// The child-process interface lives with the shell that starts children.

#include "foundation/ChildProcess.h"
