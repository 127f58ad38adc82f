#include <filesystem>
#include <gtest/gtest.h>
#include <random>
#include <unistd.h>

#include "foundation/StringList.h"
#include "support/TempFolder.h"

namespace {

TStringList ListOf(std::initializer_list<const char*> lines) {
    TStringList list;
    for (const char* line : lines)
        list.Add(line);
    return list;
}

std::vector<std::string> LinesOf(const TStringList& list) {
    std::vector<std::string> out;
    for (const AnsiString& line : list)
        out.push_back(line.str());
    return out;
}

TEST(StringList, NameLookupIgnoresCaseAndFirstMatchWins) {
    const TStringList list = ListOf({"A=1", "a=2", "b"});
    EXPECT_EQ(list.IndexOfName("a"), 0);
    EXPECT_EQ(list.GetValue("a"), "1");
    EXPECT_EQ(list.IndexOfName("b"), -1);
    EXPECT_EQ(list.IndexOf("B"), 2);
    EXPECT_EQ(list.GetName(2), "");
    EXPECT_EQ(list.GetValue("missing"), "");
}

TEST(StringList, NamesAndValuesAreNeitherTrimmedNorSplitTwice) {
    const TStringList list = ListOf({"=empty", "a = b=c"});
    EXPECT_EQ(list.IndexOfName(""), 0);
    EXPECT_EQ(list.GetName(0), "");
    EXPECT_EQ(list.GetValue("a "), " b=c");
    EXPECT_EQ(list.IndexOfName("a"), -1);
}

TEST(StringList, BadIndexesRaise) {
    TStringList list = ListOf({"x"});
    EXPECT_THROW(list.Strings(1), Exception);
    EXPECT_THROW(list.Delete(-1), Exception);
    EXPECT_THROW(list.GetName(1), Exception);
    EXPECT_THROW(list.Insert(2, "y"), Exception);
    list.Insert(1, "y");
    EXPECT_EQ(LinesOf(list), (std::vector<std::string>{"x", "y"}));
}

TEST(StringList, SortedAddKeepsTheFirstFormAndOrdersSymbolsDigitsLetters) {
    TStringList list;
    list.SetSorted(true);
    for (const char* line : {"Spam", "beta", "SPAM", "10", "~x", "_u", "\xC3\xA9t\xC3\xA9", "Zed"})
        list.Add(line);
    // An accented letter sorts beside its base letter.
    EXPECT_EQ(LinesOf(list), (std::vector<std::string>{"_u", "~x", "10", "beta",
                                                       "\xC3\xA9t\xC3\xA9", "Spam", "Zed"}));
    EXPECT_EQ(list.Add("BETA"), 3) << "a duplicate returns the index of the line already there";
    EXPECT_EQ(list.IndexOf("spam"), 5);
}

// Lines added in one batch end as they would one by one: which form of
// lines differing in case stays, and the order, whatever stood in the list.
TEST(StringList, AddLinesEndsAsAddOneByOne) {
    std::mt19937 random(7);
    const std::vector<std::string> words{
        "ann", "Ann", "ANN", "b", "B", "\xc3\xa9t\xc3\xa9", "\xc3\x89T\xc3\x89",
        "~x",  "10",  "9",   "",  " a"};
    for (const bool sorted : {true, false}) {
        for (int round = 0; round < 50; ++round) {
            TStringList one, batch;
            for (TStringList* list : {&one, &batch})
                list->SetSorted(sorted);
            for (const int size : {round % 5, 3 + round % 40}) {
                std::vector<AnsiString> added;
                for (int i = 0; i < size; ++i)
                    added.emplace_back(words[random() % words.size()]);
                for (const AnsiString& line : added)
                    one.Add(line);
                batch.AddLines(added);
                EXPECT_TRUE(added.empty());
                ASSERT_EQ(LinesOf(batch), LinesOf(one)) << "round " << round;
            }
        }
    }
}

TEST(StringList, SortingAnExistingListSortsAtOnce) {
    TStringList list = ListOf({"c", "B", "a"});
    list.SetSorted(true);
    EXPECT_EQ(LinesOf(list), (std::vector<std::string>{"a", "B", "c"}));
}

TEST(StringList, TextSplitsOnEveryLineEndAndStopsAtNul) {
    struct Case {
        std::string_view text;
        std::vector<std::string> lines;
    };
    using namespace std::string_view_literals;
    for (const Case& c : std::initializer_list<Case>{{"a\r\nb\rc\nd"sv, {"a", "b", "c", "d"}},
                                                     {"a\n\rb"sv, {"a", "", "b"}},
                                                     {"a\r\n\r\n"sv, {"a", ""}},
                                                     {"a\nb\0c"sv, {"a", "b"}},
                                                     {""sv, {}},
                                                     {"\0a"sv, {}}}) {
        TStringList list;
        list.SetText(c.text);
        EXPECT_EQ(LinesOf(list), c.lines) << c.text;
    }
}

TEST(StringList, TextEndsEveryLineWithCrLf) {
    EXPECT_EQ(ListOf({"a", ""}).GetText(), "a\r\n\r\n");
    EXPECT_EQ(TStringList().GetText(), "");
}

TEST(StringList, FileRoundTripAndFailures) {
    TTempFolder folder;
    using namespace std::string_view_literals;
    TStringList loaded;
    loaded.LoadFromFile(folder.Write("in.txt", "a\nb\0c"sv));
    EXPECT_EQ(LinesOf(loaded), (std::vector<std::string>{"a", "b"}));

    loaded.SaveToFile(folder / "out.txt");
    EXPECT_EQ(ReadFileBytes(folder / "out.txt"), "a\r\nb\r\n");

    TStringList keeps = ListOf({"kept"});
    EXPECT_THROW(keeps.LoadFromFile(folder / "missing.txt"), EFOpenError);
    EXPECT_EQ(LinesOf(keeps), std::vector<std::string>{"kept"});
    EXPECT_THROW(keeps.SaveToFile(folder / "no/such/folder.txt"), EFCreateError);

    TStringList empty;
    empty.LoadFromFile(folder.Write("empty.txt", ""));
    EXPECT_EQ(empty.Count(), 0);
}

TEST(StringList, SaveReplacesWholeAndKeepsTheSymbolicLink) {
    TTempFolder folder;
    const std::string target = folder.Write("real.ini", "old contents that are longer\r\n");
    const std::string link = folder / "link.ini";
    ASSERT_EQ(symlink(target.c_str(), link.c_str()), 0);
    ListOf({"new"}).SaveToFile(link);
    EXPECT_EQ(ReadFileBytes(target), "new\r\n");
    char buffer[256] = {};
    EXPECT_GT(readlink(link.c_str(), buffer, sizeof buffer - 1), 0) << "the link must stay a link";
    int entries = 0;
    for ([[maybe_unused]] const auto& e : std::filesystem::directory_iterator(folder.Path()))
        ++entries;
    EXPECT_EQ(entries, 2) << "no temporary file may be left beside the target";
}

} // namespace
