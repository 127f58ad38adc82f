#include "controls/ListView.h"

#include <algorithm>
#include <cstdint>
#include <numeric>

#include "foundation/Exceptions.h"

TListItem& TListView::Add() {
    items.emplace_back();
    RowsChanged(TChange::RowsAdded);
    return items.back();
}

void TListView::Reserve(int count) {
    if (count > 0) items.reserve(static_cast<std::size_t>(count));
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
        NoticeRows(TChange::Rows);
    } else if (pendingSelection) {
        pendingSelection = false;
        Changed(TChange::Selection);
    }
}

// Outside an update every change of rows is announced as Rows, as ever;
// RowsAdded only comes from ShowRowsSoFar.
void TListView::RowsChanged(TChange change) {
    if (change == TChange::Rows) rowsReplaced = true;
    if (updateCount > 0) {
        (change == TChange::Selection ? pendingSelection : pendingRows) = true;
        return;
    }
    if (change == TChange::Selection) {
        Changed(change);
        return;
    }
    NoticeRows(TChange::Rows);
}

void TListView::NoticeRows(TChange change) {
    rowsReplaced = false;
    noticedCount = items.size();
    Changed(change);
}

void TListView::ShowRowsSoFar() {
    if (updateCount == 0 || !pendingRows) return;
    pendingRows = false;
    NoticeRows(rowsReplaced || items.size() < noticedCount ? TChange::RowsSoFar
                                                           : TChange::RowsAdded);
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

std::vector<std::uint32_t> TListView::SortedOrder() const {
    std::vector<std::uint32_t> order(items.size());
    std::iota(order.begin(), order.end(), 0U);
    std::stable_sort(order.begin(), order.end(), [this](std::uint32_t a, std::uint32_t b) {
        return OnCompare(items[a], items[b]) < 0;
    });
    return order;
}

std::vector<std::uint32_t> TListView::SortedOrderByKeys() const {
    std::vector<TKeyed> keyed;
    keyed.reserve(items.size());
    for (std::uint32_t i = 0; i < items.size(); ++i)
        keyed.push_back({OnSortKey(items[i], 0), i});
    SortByKeys(keyed.begin(), keyed.end(), 0);
    std::vector<std::uint32_t> order(items.size());
    for (std::size_t i = 0; i < keyed.size(); ++i)
        order[i] = keyed[i].index;
    return order;
}

// Each run of equal keys is sorted on by the next 16 bytes of its rows'
// texts. Equal keys of which only some are whole cannot happen with texts
// free of NUL bytes; such a run, and one deeper than any text should be,
// goes to OnCompare. Every step is stable, so equal rows keep their order.
void TListView::SortByKeys(std::vector<TKeyed>::iterator first, std::vector<TKeyed>::iterator last,
                           unsigned depth) const {
    constexpr unsigned deepest = 64;
    const auto same = [](const TKeyed& a, const TKeyed& b) {
        return a.key.high == b.key.high && a.key.low == b.key.low;
    };
    std::stable_sort(first, last, [](const TKeyed& a, const TKeyed& b) {
        return a.key.high != b.key.high ? a.key.high < b.key.high : a.key.low < b.key.low;
    });
    for (auto run = first; run != last;) {
        const auto end =
            std::find_if(run + 1, last, [&](const TKeyed& k) { return !same(k, *run); });
        const auto wholeKeys = std::count_if(run, end, [](const TKeyed& k) { return k.key.whole; });
        if (wholeKeys == 0 && end - run > 1 && depth < deepest) {
            for (auto k = run; k != end; ++k)
                k->key = OnSortKey(items[k->index], depth + 1);
            SortByKeys(run, end, depth + 1);
        } else if (wholeKeys != end - run) {
            std::stable_sort(run, end, [this](const TKeyed& a, const TKeyed& b) {
                return OnCompare(items[a.index], items[b.index]) < 0;
            });
        }
        run = end;
    }
}

// The order is worked out on row numbers and the rows are then moved into
// place: a stable sort of the rows themselves would want a second copy of
// every row as its buffer.
void TListView::Sort() {
    if (!OnCompare || items.size() < 2) return;
    std::vector<std::uint32_t> order = OnSortKey ? SortedOrderByKeys() : SortedOrder();
    // Each cycle of the permutation is walked once; a visited place points at itself.
    for (std::uint32_t start = 0; start < order.size(); ++start) {
        if (order[start] == start) continue;
        TListItem held = std::move(items[start]);
        std::uint32_t at = start;
        while (order[at] != start) {
            const std::uint32_t from = order[at];
            items[at] = std::move(items[from]);
            order[at] = at;
            at = from;
        }
        items[at] = std::move(held);
        order[at] = at;
    }
    RowsChanged(TChange::Rows);
}
