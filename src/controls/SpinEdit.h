#pragma once
// A spin edit: a number with a lower and an upper limit, shown as text. The
// value always lies within the limits: a number beyond one, set from code
// or typed, becomes that limit. Limits that are equal bind nothing.

#include <functional>

#include "controls/Control.h"

class TSpinEdit : public TControl {
public:
    using TControl::TControl;

    int MinValue = 0;
    int MaxValue = 100;

    // From code: kept within the limits, no event runs.
    int Value() const { return value; }
    void SetValue(int number);
    const AnsiString& Text() const { return Caption(); }

    // A person types: the text stays as typed, the value becomes the number
    // it holds, within the limits (unchanged when it holds none); then
    // OnChange.
    void UserType(const AnsiString& typed);
    std::function<void()> OnChange;

private:
    int Bounded(int number) const;

    int value = 0;
};
