#include "controls/CheckBox.h"

void TCheckBox::SetChecked(bool value) {
    if (checked == value) return;
    checked = value;
    Changed(TChange::Selection);
}

void TCheckBox::UserClick() {
    if (!EnabledWithParents()) return;
    SetChecked(!checked);
    if (OnClick) OnClick();
    if (OnChange) OnChange();
}
