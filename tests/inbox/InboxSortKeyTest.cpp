#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "foundation/Utils.h"
#include "inbox/InboxForm.h"
#include "support/GlobalScope.h"
#include "support/TempFolder.h"

namespace {

// Texts whose order the first bytes alone cannot tell, or tell wrongly if
// they are taken carelessly: long common beginnings, case, accents that fold
// to more bytes, empty cells, numbers of different widths, signs.
const std::vector<std::string> texts = {
    "",
    "a",
    "A",
    "ab",
    "abcdefghijklmnopq",
    "ABCDEFGHIJKLMNOPQ",
    "abcdefghijklmnopr",
    "abcdefghijklmnop",
    "abcdefghijklmno",
    "\xc3\xa9t\xc3\xa9",
    "\xc3\x89T\xc3\x89",
    "stra\xc3\x9f"
    "e und noch mehr Text",
    "zz",
    "10",
    "9",
    "-3",
    "4294967296",
    "x",
    "1999/01/05 05:54",
    "1999/01/05 05:55",
};

// The order the keys give is the order the comparison gives, for every
// column, both directions and rows in any mix.
TEST(InboxSortKey, SortingWithKeysGivesTheOrderOfTheComparison) {
    TTempFolder folder;
    TGlobalScope scope{AnsiString(folder / "bin/vellumdesk")};
    TInboxFrm inbox;
    TListView& list = inbox.lvEmailList;
    std::vector<TListItem> rows;
    for (std::size_t i = 0; i < 3 * texts.size(); ++i) {
        TListItem row;
        const auto text = [&](std::size_t k) {
            return AnsiString(texts[(i * k + i / 7) % texts.size()]);
        };
        row.Caption = text(1);
        row.SubItems = {text(3), text(5), text(7), text(11), text(13), text(17)};
        row.Hint = AnsiString(static_cast<unsigned long>(i));
        rows.push_back(row);
    }
    for (int column = 0; column <= 6; ++column) {
        for (const bool flag : {false, true}) {
            Utils->SortColumn = column;
            Utils->SortFlag = flag;
            std::vector<TListItem> expected = rows;
            std::stable_sort(expected.begin(), expected.end(),
                             [&](const TListItem& a, const TListItem& b) {
                                 return inbox.lvEmailListCompare(a, b) < 0;
                             });
            list.SetSortType(TSortType::stNone);
            list.Clear();
            for (const TListItem& row : rows)
                list.Add() = row;
            list.SetSortType(TSortType::stText);
            ASSERT_EQ(list.Count(), static_cast<int>(expected.size()));
            for (int i = 0; i < list.Count(); ++i)
                ASSERT_EQ(list.Item(i).Hint, expected[static_cast<std::size_t>(i)].Hint)
                    << "column " << column << " flag " << flag << " row " << i;
        }
    }
}

} // namespace
