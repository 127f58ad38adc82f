#pragma once
// A check box: a caption and a checked state. Code sets the state quietly; a
// person's click toggles it and runs the events.

#include <functional>

#include "controls/Control.h"

class TCheckBox : public TControl {
public:
    using TControl::TControl;

    bool Checked() const { return checked; }
    void SetChecked(bool value);

    // A person's click: toggles, then OnClick, then OnChange. Nothing happens
    // while the box or its container is disabled.
    void UserClick();
    std::function<void()> OnClick;
    std::function<void()> OnChange;

private:
    bool checked = false;
};
