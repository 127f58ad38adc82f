#include <gtest/gtest.h>

#include "foundation/StringList.h"

TEST(StringList, SortedAddIgnoresCaseDuplicates) {
    TStringList list;
    list.SetSorted(true);
    list.Add("Spam");
    list.Add("SPAM");
    list.Add("10");
    list.Add("~x");
    ASSERT_EQ(list.Count(), 3);
    EXPECT_EQ(list[0], "~x");
    EXPECT_EQ(list[1], "10");
    EXPECT_EQ(list[2], "Spam");
}
