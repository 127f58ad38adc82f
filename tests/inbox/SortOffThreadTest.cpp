#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "foundation/Utils.h"
#include "inbox/InboxForm.h"
#include "support/GlobalScope.h"
#include "support/TempFolder.h"

// A long message list is sorted on a thread of its own while the window's
// thread handles its events. The order must be the one the window's thread
// gives alone, and events that change the rows during the wait must leave
// the rows as if they had come first.

namespace {

constexpr std::size_t rowCount = 3000;

// Rows with many ties, long common beginnings, accents and numbers of
// different widths; the hint is the row's number.
std::vector<TListItem> Rows() {
    const std::vector<std::string> names = {
        "\"O'Brien, Matthew\" <m@example.org>", "Chlo\xc3\xa9 Walker <c@example.net>",
        "chlo\xc3\xa9 walker <c@example.net>", "Ana <ana@example.org>", ""};
    std::vector<TListItem> rows;
    for (std::size_t i = 0; i < rowCount; ++i) {
        TListItem row;
        const auto number = [](std::size_t n) { return AnsiString(static_cast<unsigned long>(n)); };
        row.Caption = AnsiString(names[i * 7 % names.size()]);
        row.SubItems = {AnsiString("Weekly newsletter of the long common beginning #") +
                            number(i * 13 % 97),
                        AnsiString("13.31.20") + number(10 + i % 3) + " 04.0" + number(i % 7) +
                            ".5" + number(i * 11 % 10) + " ",
                        number(i * 37 % 1009 * (i % 2 ? 1000 : 1)),
                        AnsiString(),
                        AnsiString("text/plain;"),
                        AnsiString("msg") + number(i) + ".eml"};
        row.Hint = number(i);
        rows.push_back(std::move(row));
    }
    return rows;
}

std::vector<std::string> HintsOf(const TListView& list) {
    std::vector<std::string> hints;
    for (int i = 0; i < list.Count(); ++i)
        hints.push_back(list.Item(i).Hint.str());
    return hints;
}

struct TSortFixture : ::testing::Test {
    TTempFolder folder;
    TGlobalScope scope{AnsiString(folder / "bin/vellumdesk")};
    TInboxFrm inbox;
    TListView& list = inbox.lvEmailList;

    void Fill(const std::vector<TListItem>& rows) {
        list.SetSortType(TSortType::stNone);
        list.Clear();
        for (const TListItem& row : rows)
            list.Add() = row;
    }
    // The rows in the order of the comparison alone.
    std::vector<std::string> Expected(std::vector<TListItem> rows) const {
        std::stable_sort(rows.begin(), rows.end(), [&](const TListItem& a, const TListItem& b) {
            return inbox.lvEmailListCompare(a, b) < 0;
        });
        std::vector<std::string> hints;
        for (const TListItem& row : rows)
            hints.push_back(row.Hint.str());
        return hints;
    }
};

using SortOffThread = TSortFixture;

TEST_F(SortOffThread, GivesTheOrderOfTheComparisonForEveryColumnAndDirection) {
    const std::vector<TListItem> rows = Rows();
    list.OffThreadSortRows = 2;
    for (int column = 0; column <= 6; ++column) {
        for (const bool flag : {false, true}) {
            Utils->SortColumn = column;
            Utils->SortFlag = flag;
            Fill(rows);
            list.SetSortType(TSortType::stText);
            EXPECT_EQ(HintsOf(list), Expected(rows)) << "column " << column << " flag " << flag;
        }
    }
}

// Each event is posted before the sort and so arrives while it copies the
// texts or while its thread works.
TEST_F(SortOffThread, RowsChangedDuringTheWaitEndAsIfTheChangeCameFirst) {
    struct TCase {
        const char* name;
        std::function<void(TInboxFrm&)> event;
        // The rows the event leaves, and the column and direction they sort by.
        std::function<std::vector<TListItem>(std::vector<TListItem>)> rowsAfter;
        int column;
        bool flag;
    };
    const auto same = [](std::vector<TListItem> rows) { return rows; };
    TListItem added;
    added.Caption = "Zed <z@example.org>";
    added.SubItems = {"added", "13.31.2011 04.03.52 ", "1", "", "", "added.eml"};
    added.Hint = "added";
    const std::vector<TCase> cases = {
        {"a click on another column", [](TInboxFrm& f) { f.lvEmailListColumnClick(0); }, same, 0,
         false},
        {"a new row", [&](TInboxFrm& f) { f.lvEmailList.Add() = added; },
         [&](std::vector<TListItem> rows) {
             rows.push_back(added);
             return rows;
         },
         2, false},
        {"the list cleared", [](TInboxFrm& f) { f.lvEmailList.Clear(); },
         [](std::vector<TListItem>) { return std::vector<TListItem>{}; }, 2, false},
        {"a row selected", [](TInboxFrm& f) { f.lvEmailList.SetSelected(5, true); }, same, 2,
         false},
    };
    const std::vector<TListItem> rows = Rows();
    list.OffThreadSortRows = rowCount / 2;
    for (const TCase& c : cases) {
        Utils->SortColumn = 2;
        Utils->SortFlag = false;
        Fill(rows);
        int notices = 0;
        const int subscription =
            list.Subscribe([&](TControl&, TChange change) { notices += change == TChange::Rows; });
        scope.App().Post([&] { c.event(inbox); });
        list.SetSortType(TSortType::stText);
        list.Unsubscribe(subscription);
        EXPECT_FALSE(scope.App().HasPendingEvents()) << c.name;
        Utils->SortColumn = c.column;
        Utils->SortFlag = c.flag;
        EXPECT_EQ(HintsOf(list), Expected(c.rowsAfter(rows))) << c.name;
        EXPECT_LE(notices, 2) << c.name << ": the sort was not repeated for nothing";
        if (const TListItem* selected = list.Selected()) {
            EXPECT_EQ(selected->Hint, "5") << "the selection stays with its row";
        }
    }
}

} // namespace
