#pragma once
// A combo box: offered items, an item index and a text. In the drop-down-list
// style the user can only choose an item; otherwise any text can be typed.

#include <functional>

#include "controls/Control.h"
#include "foundation/StringList.h"

enum class TComboStyle { csDropDown, csDropDownList };

class TComboBox : public TControl {
public:
    using TControl::TControl;

    TComboStyle Style = TComboStyle::csDropDown;

    const TStringList& Items() const { return items; }
    void SetItems(const TStringList& lines);
    void AddItem(const AnsiString& line);
    void ClearItems();

    // Setting the index from code selects the item and its text; no change event runs.
    int ItemIndex() const { return itemIndex; }
    void SetItemIndex(int index);
    const AnsiString& Text() const { return Caption(); }
    void SetText(const AnsiString& value);

    // What a person does: the change event runs afterwards.
    void UserPick(int index);
    void UserType(const AnsiString& value);
    std::function<void()> OnChange;

private:
    TStringList items;
    int itemIndex = -1;
};
