#include "controls/ComboBox.h"

void TComboBox::SetItems(const TStringList& lines) {
    items = lines;
    items.SetSorted(false);
    itemIndex = -1;
    Changed(TChange::Rows);
}

void TComboBox::AddItem(const AnsiString& line) {
    items.Add(line);
    Changed(TChange::Rows);
}

void TComboBox::ClearItems() {
    items.Clear();
    itemIndex = -1;
    Changed(TChange::Rows);
}

void TComboBox::SetItemIndex(int index) {
    if (index < -1 || index >= items.Count()) index = -1;
    itemIndex = index;
    SetCaption(index >= 0 ? items.Strings(index) : AnsiString());
    Changed(TChange::Selection);
}

void TComboBox::SetText(const AnsiString& value) {
    // A typed text that equals an item selects it, as in the native control.
    if (Style == TComboStyle::csDropDownList) {
        SetItemIndex(items.IndexOf(value));
        return;
    }
    SetCaption(value);
}

// A person cannot act on a combo box that is disabled or stands in a
// disabled group.
void TComboBox::UserPick(int index) {
    if (!EnabledWithParents()) return;
    SetItemIndex(index);
    if (OnChange) OnChange();
}

void TComboBox::UserType(const AnsiString& value) {
    if (!EnabledWithParents()) return;
    SetText(value);
    if (OnChange) OnChange();
}
