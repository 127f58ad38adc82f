#include <gtest/gtest.h>

#include "foundation/AnsiString.h"

namespace {

struct SubStringCase {
    int index, count;
    const char* expected;
};

TEST(AnsiString, SubStringClampsTheStartButNotTheCount) {
    const AnsiString abc = "abc";
    for (const SubStringCase& c : std::initializer_list<SubStringCase>{
             {0, 2, "ab"}, {-1, 2, "ab"}, {3, 512, "c"}, {4, 1, ""}, {2, 0, ""}, {1, -5, ""}})
        EXPECT_EQ(abc.SubString(c.index, c.count), c.expected) << c.index << "," << c.count;
}

TEST(AnsiString, DeleteIgnoresPositionsOutsideTheText) {
    struct Case {
        int index, count;
        const char* expected;
    };
    for (const Case& c : std::initializer_list<Case>{
             {4, 1, "abc"}, {0, 1, "abc"}, {2, 128, "a"}, {1, 1, "bc"}, {2, 0, "abc"}}) {
        AnsiString s = "abc";
        EXPECT_EQ(s.Delete(c.index, c.count), c.expected) << c.index << "," << c.count;
    }
}

TEST(AnsiString, InsertClampsItsPosition) {
    struct Case {
        int index;
        const char* expected;
    };
    for (const Case& c :
         std::initializer_list<Case>{{-3, "Xabc"}, {1, "Xabc"}, {3, "abXc"}, {9, "abcX"}}) {
        AnsiString s = "abc";
        EXPECT_EQ(s.Insert("X", c.index), c.expected) << c.index;
    }
}

TEST(AnsiString, PosIsCaseSensitiveAndZeroForEmptyTexts) {
    EXPECT_EQ(AnsiString("abc").Pos(""), 0);
    EXPECT_EQ(AnsiString("").Pos("a"), 0);
    EXPECT_EQ(AnsiString("From: x").Pos("from"), 0);
    EXPECT_EQ(AnsiString("abcabc").Pos("ca"), 3);
}

TEST(AnsiString, TrimDropsAllControlBytes) {
    EXPECT_EQ(AnsiString("\r\n x\t").Trim(), "x");
    EXPECT_EQ(AnsiString("   ").Trim(), "");
    EXPECT_EQ(AnsiString("\x01 a b \x1f").TrimLeft(), "a b \x1f");
    EXPECT_EQ(AnsiString(" a ").TrimRight(), " a");
}

TEST(AnsiString, ToIntDefAcceptsOnlyAWholeNumber) {
    struct Case {
        const char* text;
        int def, expected;
    };
    for (const Case& c : std::initializer_list<Case>{{"12", 0, 12},
                                                     {"", 0, 0},
                                                     {"12a", 0, 0},
                                                     {"12 ", 0, 0},
                                                     {"x", 120, 120},
                                                     {"  -7", 0, -7},
                                                     {"+5", 0, 5},
                                                     {"$1F", 0, 31},
                                                     {"0x10", 0, 16},
                                                     {"2147483647", 0, 2147483647},
                                                     {"2147483648", 9, 9},
                                                     {"-2147483648", 0, -2147483647 - 1}})
        EXPECT_EQ(AnsiString(c.text).ToIntDef(c.def), c.expected) << c.text;
}

TEST(AnsiString, IndexOutsideTheTextRaisesRangeError) {
    AnsiString s = "ab";
    EXPECT_EQ(s[2], 'b');
    EXPECT_THROW(s[0], ERangeError);
    EXPECT_THROW(s[3], ERangeError);
    const AnsiString copy = s;
    s[1] = 'x';
    EXPECT_EQ(copy, "ab") << "copies must not share visible storage";
}

TEST(AnsiString, DelimitersAndFormatting) {
    EXPECT_EQ(AnsiString("a.b.c").LastDelimiter("."), 4);
    EXPECT_EQ(AnsiString("abc").LastDelimiter("/\\"), 0);
    EXPECT_TRUE(AnsiString("a/b").IsDelimiter("\\/", 2));
    EXPECT_FALSE(AnsiString("a/b").IsDelimiter("/", 4));
    AnsiString s;
    s.sprintf("%d Messages", 3).cat_sprintf(" %.3d|%3.3d", 7, 42);
    EXPECT_EQ(s, "3 Messages 007|042");
    EXPECT_EQ(AnsiString(4294967295UL), "4294967295");
    EXPECT_STREQ(AnsiString().c_str(), "");
    EXPECT_EQ(AnsiString(static_cast<const char*>(nullptr)), "");
}

TEST(AnsiString, ByteOrderIsUnsignedAndPrefixIsSmaller) {
    EXPECT_LT(AnsiString("ab"), AnsiString("abc"));
    EXPECT_LT(AnsiString("z"), AnsiString("\xE9"));
}

TEST(AnsiString, CaseFoldingKeepsMultiByteLettersWhole) {
    EXPECT_EQ(AnsiString("\xC3\xA9t\xC3\xA9 ABC").UpperCase(), "\xC3\x89T\xC3\x89 ABC");
    EXPECT_EQ(AnsiString("\xC3\x89T\xC3\x89").LowerCase(), "\xC3\xA9t\xC3\xA9");
    // A lone Windows-1252 byte folds as that code page does.
    EXPECT_EQ(AnsiString("\xE9").UpperCase(), "\xC9");
}

} // namespace
