#pragma once
// A radio group: a caption, its choices laid out in columns, and the index of
// the chosen one (-1 for none).

#include <functional>

#include "controls/Control.h"
#include "foundation/StringList.h"

class TRadioGroup : public TControl {
public:
    using TControl::TControl;

    int Columns = 1;

    const TStringList& Items() const { return items; }
    void SetItems(const TStringList& lines);

    // From code: no event runs.
    int ItemIndex() const { return itemIndex; }
    void SetItemIndex(int index);

    // A person's choice: OnChange if the index moved, then OnClick. Nothing
    // happens while the group or its container is disabled.
    void UserPick(int index);
    std::function<void()> OnClick;
    std::function<void()> OnChange;

private:
    TStringList items;
    int itemIndex = -1;
};
