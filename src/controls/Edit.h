#pragma once
// A one-line edit box.

#include <functional>

#include "controls/Control.h"

class TEdit : public TControl {
public:
    using TControl::TControl;

    const AnsiString& Text() const { return Caption(); }
    void SetText(const AnsiString& value) { SetCaption(value); }

    // A person's typing: the whole new text, then OnChange.
    void UserType(const AnsiString& value);
    std::function<void()> OnChange;
};
