#include <gtest/gtest.h>

#include "rules/RuleText.h"

namespace {

std::vector<std::string> Items(const TStringList& list) {
    std::vector<std::string> out;
    for (const AnsiString& line : list)
        out.push_back(line.str());
    return out;
}

TEST(ExtractBetween, BothEndsForgive) {
    struct Case {
        const char* source;
        const char* start;
        const char* end;
        const char* result;
    } cases[] = {
        {"\"A Name\" <box@isp>", "\"", "\"", "A Name"},
        {"\"A Name\" <box@isp>", "<", "@", "box"},
        {"\"A Name\" <box@isp>", "@", ">", "isp"},
        {"box@isp", "<", "@", "box"}, // no start: from the beginning
        {"box@isp", "@", ">", "isp"}, // no end: to the end
        {"Nobody", "\"", "\"", ""},   // neither: empty
        {"\"Open quote", "\"", "\"", "Open quote"},
        {"a>b@c", "@", ">", "c"}, // the end is looked for behind the start
        {"", "<", ">", ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ExtractBetween(c.source, c.start, c.end), c.result) << c.source;

    const std::string longName = "\"" + std::string(300, 'n');
    EXPECT_EQ(ExtractBetween(longName, "\"", "\"").Length(), 255);
}

TEST(FillAddressChoices, OffersTheAddressItsPartsAndTheirRuns) {
    struct Case {
        const char* address;
        std::vector<std::string> items;
    } cases[] = {
        {"\"A Name\" <box@isp>",
         {"\"A Name\" <box@isp>", "A Name", "box", "isp", "A Name;box", "A Name;box;isp",
          "box;isp"}},
        {"box@isp", {"box@isp", "box", "isp", "box;isp"}},
        {"<box@isp>", {"<box@isp>", "box", "isp", "box;isp"}},
        {"Nobody", {"Nobody"}},
        {"  ", {""}},
    };
    for (const Case& c : cases) {
        TStringList items;
        items.Add("stale");
        EXPECT_EQ(FillAddressChoices(c.address, items), int(c.items.size())) << c.address;
        EXPECT_EQ(Items(items), c.items) << c.address;
    }
}

TEST(FillSubjectChoices, OffersTheSubjectItsWordsAndTheirRuns) {
    struct Case {
        const char* subject;
        std::vector<std::string> items;
    } cases[] = {
        {"Big sale today",
         {"Big sale today", "Big", "sale", "today", "Big sale", "Big sale today", "sale today"}},
        {"  Big   sale  ", {"Big   sale", "Big", "sale", "Big sale"}},
        {"Hello", {"Hello"}},
        {"    ", {""}},
        {"", {""}},
    };
    for (const Case& c : cases) {
        TStringList items;
        EXPECT_EQ(FillSubjectChoices(c.subject, items), int(c.items.size())) << c.subject;
        EXPECT_EQ(Items(items), c.items) << c.subject;
    }
}

TEST(FillSubjectChoices, CutsLongWordsAndStopsAtAHundredWords) {
    TStringList items;
    const std::string word(600, 'w');
    FillSubjectChoices(("x " + word).c_str(), items);
    ASSERT_GE(items.Count(), 5);
    EXPECT_EQ(items[1], "x");
    EXPECT_EQ(items[2].Length(), 255);
    EXPECT_EQ(items[3].Length(), 255);
    EXPECT_EQ(items[4].Length(), 90);

    std::string many;
    for (int i = 0; i < 150; ++i)
        many += "w" + std::to_string(i) + " ";
    EXPECT_EQ(FillSubjectChoices(many.c_str(), items), 101 + 100 * 99 / 2);
    EXPECT_EQ(items[100], "w99");
}

} // namespace
