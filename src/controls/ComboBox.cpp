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

void TComboBox::UserPick(int index) {
    SetItemIndex(index);
    if (OnChange) OnChange();
}

void TComboBox::UserType(const AnsiString& value) {
    SetText(value);
    if (OnChange) OnChange();
}
