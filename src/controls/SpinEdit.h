#pragma once
// A spin edit: a number with a lower and an upper limit, shown as text.

#include <functional>

#include "controls/Control.h"

class TSpinEdit : public TControl {
public:
    using TControl::TControl;

    int MinValue = 0;
    int MaxValue = 100;

    // From code: stored as given, no event runs.
    int Value() const { return value; }
    void SetValue(int number);
    const AnsiString& Text() const { return Caption(); }

    // A person types: the text stays as typed, the value becomes the number
    // it holds (unchanged when it holds none); then OnChange.
    void UserType(const AnsiString& typed);
    std::function<void()> OnChange;

private:
    int value = 0;
};
