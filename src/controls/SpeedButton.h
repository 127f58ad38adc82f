#pragma once
// A small button that shows a picture and no caption.

#include <functional>

#include "controls/Control.h"

class TSpeedButton : public TControl {
public:
    using TControl::TControl;

    std::function<void()> OnClick;
    void Click() {
        if (OnClick && EnabledWithParents()) OnClick();
    }
};
