#include "controls/SpinEdit.h"

void TSpinEdit::SetValue(int number) {
    value = number;
    SetCaption(AnsiString(std::to_string(number)));
    Changed(TChange::Selection);
}

void TSpinEdit::UserType(const AnsiString& typed) {
    if (!EnabledWithParents()) return;
    value = typed.Trim().ToIntDef(value);
    SetCaption(typed);
    Changed(TChange::Selection);
    if (OnChange) OnChange();
}
