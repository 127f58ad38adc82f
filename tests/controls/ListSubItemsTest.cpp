#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "controls/ListSubItems.h"

namespace {

std::vector<std::string> TextsOf(const TListSubItems& items) {
    return std::vector<std::string>(items.begin(), items.end());
}

// A row's texts come back byte for byte, through copies and moves, whatever
// they hold: nothing, empty texts, NUL bytes, long texts.
TEST(ListSubItems, KeepsTextsByteForByteThroughCopiesAndMoves) {
    const std::vector<std::vector<std::string>> cases = {
        {},
        {""},
        {"", "", ""},
        {"Subject", "09.27.2000 17.04.-0-0700", "11317", "", "text/plain", "a.eml"},
        {std::string("a\0b", 3), std::string(70000, 'x'), "\xc3\xa9"},
    };
    for (const auto& texts : cases) {
        std::vector<AnsiString> given(texts.begin(), texts.end());
        const TListSubItems items(given);
        EXPECT_EQ(TextsOf(items), texts);
        EXPECT_EQ(items.size(), texts.size());
        EXPECT_EQ(items.empty(), texts.empty());
        for (std::size_t i = 0; i < texts.size(); ++i) {
            EXPECT_EQ(items.View(i), texts[i]);
            EXPECT_EQ(items.at(i).str(), texts[i]);
        }
        EXPECT_THROW(items.at(texts.size()), std::out_of_range);
        TListSubItems copy = items;
        EXPECT_EQ(TextsOf(copy), texts);
        TListSubItems moved = std::move(copy);
        EXPECT_EQ(TextsOf(moved), texts);
        moved = {"one"};
        EXPECT_EQ(TextsOf(moved), std::vector<std::string>{"one"});
        moved = items;
        EXPECT_EQ(TextsOf(moved), texts);
    }
}

} // namespace
