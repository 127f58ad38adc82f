#include "controls/RadioGroup.h"

void TRadioGroup::SetItems(const TStringList& lines) {
    items = lines;
    items.SetSorted(false);
    if (itemIndex >= items.Count()) itemIndex = -1;
    Changed(TChange::Rows);
}

void TRadioGroup::SetItemIndex(int index) {
    if (index < -1 || index >= items.Count()) index = -1;
    if (itemIndex == index) return;
    itemIndex = index;
    Changed(TChange::Selection);
}

void TRadioGroup::UserPick(int index) {
    if (!EnabledWithParents()) return;
    const int before = itemIndex;
    SetItemIndex(index);
    if (itemIndex != before && OnChange) OnChange();
    if (OnClick) OnClick();
}
