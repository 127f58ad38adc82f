#pragma once
// A panel with a caption: the status bar and the date field.

#include "controls/Control.h"

class TPanel : public TControl {
public:
    using TControl::TControl;
};
