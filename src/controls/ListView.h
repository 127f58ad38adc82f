#pragma once
// A report-style list: rows of a caption and sub-items, a multiple selection,
// a sort mode with a compare event, and column headers that can be clicked.
// A binding gets one notice per EndUpdate, not one per row.

#include <cstdint>
#include <functional>
#include <vector>

#include "controls/Control.h"
#include "controls/ListSubItems.h"
#include "controls/TextOrder.h"
#include "foundation/Sortable.h"

struct TListItem {
    AnsiString Caption;
    TListSubItems SubItems;
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
    // Room for count rows, so that a long list is not copied as it grows.
    void Reserve(int count);
    TListItem& Item(int index);
    const TListItem& Item(int index) const;
    void BeginUpdate() { ++updateCount; }
    void EndUpdate();
    // Within an update, shows the rows so far without ending it: RowsAdded
    // when rows were only added since the last notice, RowsSoFar otherwise;
    // the update still ends in one Rows notice. A
    // long scan calls it now and then, so that its first rows are on the
    // screen long before its last.
    void ShowRowsSoFar();

    // Selection
    TListItem* Selected();     // the first selected row in list order, or null
    int SelectedIndex() const; // its index, or -1
    int SelCount() const;
    void SetSelected(int index, bool selected);
    void ClearSelection();

    // Sorting: setting stText while it is stNone sorts all rows once with
    // OnCompare; setting the value it already has does nothing. Rows that
    // events change while a sort waits for its thread are sorted anew,
    // unless one of those events sorted them itself.
    TSortType SortType() const { return sortType; }
    void SetSortType(TSortType value) override;
    // Negative puts a above b, positive below, zero: equal.
    std::function<int(const TListItem& a, const TListItem& b)> OnCompare;
    // Optional: OnCompare's order as the order of one text per row, asked
    // for anew at each sort. With it the texts are copied out and ordered by
    // 16-byte keys, with few visits to the rows; a list of OffThreadSortRows
    // rows or more is ordered on a thread of its own while the window's
    // thread goes on handling its events.
    std::function<TTextOrder()> OnTextOrder;
    std::size_t OffThreadSortRows = 10000;

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
    void NoticeRows(TChange change);
    void Sort();
    std::vector<std::uint32_t> SortedOrder() const;
    std::vector<std::uint32_t> SortedTextOrder();
    void MoveRows(std::vector<std::uint32_t> order);

    std::vector<TListItem> items;
    TSortType sortType = TSortType::stNone;
    int updateCount = 0;
    bool pendingRows = false;
    bool rowsReplaced = false; // since the last notice, more than additions
    std::size_t noticedCount = 0;
    bool pendingSelection = false;
    // Counts the changes of the rows themselves (added, cleared, moved), so
    // that a sort can tell whether events during its wait changed them.
    std::uint64_t rowsVersion = 0;
    std::uint64_t sortedVersion = 0; // rowsVersion right after the last sort
};
