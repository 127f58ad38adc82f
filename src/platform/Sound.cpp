#include "platform/Sound.h"

TSound* Sound = nullptr;
