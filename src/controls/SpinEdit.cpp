#include "controls/SpinEdit.h"

#include <algorithm>

int TSpinEdit::Bounded(int number) const {
    if (MinValue >= MaxValue) return number;
    return std::clamp(number, MinValue, MaxValue);
}

void TSpinEdit::SetValue(int number) {
    value = Bounded(number);
    SetCaption(AnsiString(std::to_string(value)));
    Changed(TChange::Selection);
}

void TSpinEdit::UserType(const AnsiString& typed) {
    if (!EnabledWithParents()) return;
    value = Bounded(typed.Trim().ToIntDef(value));
    SetCaption(typed);
    Changed(TChange::Selection);
    if (OnChange) OnChange();
}
