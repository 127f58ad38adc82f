#include "controls/ListView.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <future>
#include <numeric>
#include <system_error>

#include "foundation/Exceptions.h"
#include "foundation/RunningApp.h"

TListItem& TListView::Add() {
    items.emplace_back();
    ++rowsVersion;
    RowsChanged(TChange::RowsAdded);
    return items.back();
}

void TListView::Reserve(int count) {
    if (count > 0) items.reserve(static_cast<std::size_t>(count));
}

void TListView::Clear() {
    items.clear();
    ++rowsVersion;
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

// The texts are copied on the window's thread, a slice at a time with the
// events handled in between, as a long list's rows are far apart in memory;
// the thread that orders them touches nothing else, and this one handles
// events while it waits. Events that change the rows end the copy early:
// Sort then starts anew.
std::vector<std::uint32_t> TListView::SortedTextOrder() {
    using clock = std::chrono::steady_clock;
    constexpr auto slice = std::chrono::milliseconds(4);
    const TTextOrder order = OnTextOrder();
    TRunningApp* app = items.size() >= OffThreadSortRows ? TRunningApp::Running() : nullptr;
    const std::uint64_t version = rowsVersion;
    TSortTexts texts;
    auto sliceStart = clock::now();
    for (std::size_t i = 0; i < items.size(); ++i) {
        texts.Add(order.Text(items[i]));
        if (!app || i % 1024 != 1023 || clock::now() - sliceStart < slice) continue;
        app->ProcessMessages();
        if (rowsVersion != version) return {};
        sliceStart = clock::now();
    }
    if (!app) return OrderOfTexts(texts, order);
    std::future<std::vector<std::uint32_t>> sorting;
    try {
        sorting = std::async(std::launch::async, [&] { return OrderOfTexts(texts, order); });
    } catch (const std::system_error&) { // no thread to be had: sorted here, as ever
        return OrderOfTexts(texts, order);
    }
    // The events waiting now are handled at least once while the thread works.
    do
        app->ProcessMessages();
    while (sorting.wait_for(std::chrono::milliseconds(2)) != std::future_status::ready);
    return sorting.get();
}

void TListView::Sort() {
    while (OnCompare && items.size() >= 2 && sortType == TSortType::stText) {
        const std::uint64_t version = rowsVersion;
        std::vector<std::uint32_t> order = OnTextOrder ? SortedTextOrder() : SortedOrder();
        if (rowsVersion == version) {
            MoveRows(std::move(order));
            RowsChanged(TChange::Rows);
            return;
        }
        // Events during the wait changed the rows: unless one of them
        // sorted them last, they are sorted anew.
        if (rowsVersion == sortedVersion) return;
    }
}

// The order is worked out on row numbers and the rows are then moved into
// place: a stable sort of the rows themselves would want a second copy of
// every row as its buffer.
void TListView::MoveRows(std::vector<std::uint32_t> order) {
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
    sortedVersion = ++rowsVersion;
}
