#pragma once
// A report-style list: rows of a caption and sub-items, a multiple selection,
// a sort mode with a compare event, and column headers that can be clicked.
// A binding gets one notice per EndUpdate, not one per row.

#include <functional>
#include <vector>

#include "controls/Control.h"
#include "foundation/Sortable.h"

struct TListItem {
    AnsiString Caption;
    std::vector<AnsiString> SubItems;
    bool Selected = false;
    // More about the row than its cells say, shown with the cell of the
    // list's HintColumn when the pointer rests on it.
    AnsiString Hint = {};
};

struct TListColumn {
    AnsiString Caption;
    int Width = 0;
};

class TListView : public TControl, public TSortable {
public:
    using TControl::TControl;

    std::vector<TListColumn> Columns;
    // The column whose cells also show their row's Hint; -1 for none.
    int HintColumn = -1;

    // Items
    int Count() const { return static_cast<int>(items.size()); }
    TListItem& Add();
    void Clear();
    TListItem& Item(int index);
    const TListItem& Item(int index) const;
    void BeginUpdate() { ++updateCount; }
    void EndUpdate();

    // Selection
    TListItem* Selected();     // the first selected row in list order, or null
    int SelectedIndex() const; // its index, or -1
    int SelCount() const;
    void SetSelected(int index, bool selected);
    void ClearSelection();

    // Sorting: setting stText while it is stNone sorts all rows once with
    // OnCompare; setting the value it already has does nothing.
    TSortType SortType() const { return sortType; }
    void SetSortType(TSortType value) override;
    // Negative puts a above b, positive below, zero: equal.
    std::function<int(const TListItem& a, const TListItem& b)> OnCompare;

    std::function<void(int column)> OnColumnClick;
    std::function<void()> OnDblClick;
    void ColumnClick(int column) {
        if (OnColumnClick) OnColumnClick(column);
    }
    void DblClick() {
        if (OnDblClick) OnDblClick();
    }

private:
    void RowsChanged(TChange change);
    void Sort();

    std::vector<TListItem> items;
    TSortType sortType = TSortType::stNone;
    int updateCount = 0;
    bool pendingRows = false;
    bool pendingSelection = false;
};
