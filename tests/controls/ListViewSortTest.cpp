#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "controls/ListView.h"

namespace {

struct TRow {
    std::string caption;
    std::string key;
    bool selected;
    std::string hint;
    bool operator==(const TRow&) const = default;
};

// The rows as the list holds them now.
std::vector<TRow> RowsOf(const TListView& list) {
    std::vector<TRow> rows;
    for (int i = 0; i < list.Count(); ++i) {
        const TListItem& item = list.Item(i);
        rows.push_back(
            {item.Caption.str(), item.SubItems.at(0).str(), item.Selected, item.Hint.str()});
    }
    return rows;
}

// Sorting keeps rows whole and equal rows in the order they had, for lists
// with many ties, with none, and with every row equal.
TEST(ListView, SortMovesWholeRowsAndKeepsEqualRowsInTheirOrder) {
    for (const int distinctKeys : {1, 3, 1000}) {
        TListView list(nullptr, "list");
        std::mt19937 random(static_cast<unsigned>(distinctKeys));
        for (int i = 0; i < 500; ++i) {
            TListItem& item = list.Add();
            item.Caption = AnsiString(static_cast<unsigned long>(i));
            item.SubItems = {AnsiString(static_cast<unsigned long>(random() % distinctKeys))};
            item.Selected = i % 7 == 0;
            item.Hint = AnsiString("hint ") + item.Caption;
        }
        std::vector<TRow> expected = RowsOf(list);
        std::stable_sort(expected.begin(), expected.end(),
                         [](const TRow& a, const TRow& b) { return a.key < b.key; });
        list.OnCompare = [](const TListItem& a, const TListItem& b) {
            return a.SubItems[0] < b.SubItems[0] ? -1 : b.SubItems[0] < a.SubItems[0] ? 1 : 0;
        };
        int notices = 0;
        list.Subscribe([&](TControl&, TChange change) { notices += change == TChange::Rows; });
        list.SetSortType(TSortType::stText);
        EXPECT_EQ(RowsOf(list), expected) << distinctKeys << " keys";
        EXPECT_EQ(notices, 1) << "one notice for the whole sort";
    }
}

} // namespace
