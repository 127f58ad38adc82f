#include "controls/ListView.h"

#include <algorithm>

#include "foundation/Exceptions.h"

TListItem& TListView::Add() {
    items.emplace_back();
    RowsChanged(TChange::Rows);
    return items.back();
}

void TListView::Clear() {
    items.clear();
    RowsChanged(TChange::Rows);
}

TListItem& TListView::Item(int index) {
    if (index < 0 || index >= Count()) throw EStringListError("List index out of bounds");
    return items[static_cast<std::size_t>(index)];
}

const TListItem& TListView::Item(int index) const {
    if (index < 0 || index >= Count()) throw EStringListError("List index out of bounds");
    return items[static_cast<std::size_t>(index)];
}

void TListView::EndUpdate() {
    if (updateCount > 0) --updateCount;
    if (updateCount > 0) return;
    if (pendingRows) {
        pendingRows = pendingSelection = false;
        Changed(TChange::Rows);
    } else if (pendingSelection) {
        pendingSelection = false;
        Changed(TChange::Selection);
    }
}

void TListView::RowsChanged(TChange change) {
    if (updateCount > 0) {
        (change == TChange::Rows ? pendingRows : pendingSelection) = true;
        return;
    }
    Changed(change);
}

TListItem* TListView::Selected() {
    const int index = SelectedIndex();
    return index < 0 ? nullptr : &items[static_cast<std::size_t>(index)];
}

int TListView::SelectedIndex() const {
    for (std::size_t i = 0; i < items.size(); ++i)
        if (items[i].Selected) return static_cast<int>(i);
    return -1;
}

int TListView::SelCount() const {
    return static_cast<int>(std::count_if(items.begin(), items.end(),
                                          [](const TListItem& item) { return item.Selected; }));
}

void TListView::SetSelected(int index, bool selected) {
    TListItem& item = Item(index);
    if (item.Selected == selected) return;
    item.Selected = selected;
    RowsChanged(TChange::Selection);
}

void TListView::ClearSelection() {
    bool any = false;
    for (auto& item : items) {
        any = any || item.Selected;
        item.Selected = false;
    }
    if (any) RowsChanged(TChange::Selection);
}

void TListView::SetSortType(TSortType value) {
    if (sortType == value) return;
    sortType = value;
    if (value == TSortType::stText) Sort();
}

void TListView::Sort() {
    if (!OnCompare || items.size() < 2) return;
    std::stable_sort(items.begin(), items.end(), [this](const TListItem& a, const TListItem& b) {
        return OnCompare(a, b) < 0;
    });
    RowsChanged(TChange::Rows);
}
