#include <gtest/gtest.h>

#include "foundation/Utils.h"
#include "rules/RuleLists.h"
#include "rules/RuleRecord.h"

namespace {

RuleRecord Rule(std::initializer_list<const char*> fields) {
    RuleRecord rule;
    std::size_t i = 0;
    for (const char* field : fields)
        rule.Fields.at(i++) = field;
    return rule;
}

TEST(RuleRecord, WorkedExamplesComeOutByteForByte) {
    struct Case {
        RuleRecord rule;
        const char* line;
    } cases[] = {
        {Rule({"\"A Name\" <box@isp>", "Big sale today", "~NONE~", "0", "0", "00120", "", "000",
               ""}),
         "\"A Name\" <box@isp>|Big sale today|~NONE~|0|0|00120||000||"},
        {Rule({"isp", "", "~NONE~", "1", "0",
               RuleRecord::FormatForwardOptions(true, true, 60).c_str(), "page@carrier",
               RuleRecord::FormatSaveOptions(false, true, false).c_str(), ""}),
         "isp||~NONE~|1|0|11060|page@carrier|010||"},
        {Rule({"\"A Name\" <box@isp>", "Big sale today", "~NONE~", "0", "0", "00120", "",
               RuleRecord::FormatSaveOptions(true, false, true).c_str(), "C:\\Keep\\Sales"}),
         "\"A Name\" <box@isp>|Big sale today|~NONE~|0|0|00120||101|C:\\Keep\\Sales|"},
        // An empty From text starts the line with its separator; a "|" or "="
        // in a field is written as it is, one separator more.
        {Rule({"", "Hi", "~NONE~", "0", "0", "00120", "", "000", ""}),
         "|Hi|~NONE~|0|0|00120||000||"},
        {Rule({"a=b", "x|y", "~NONE~", "0", "0", "00120", "", "000", ""}),
         "a=b|x|y|~NONE~|0|0|00120||000||"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.rule.ToLine(), c.line);
}

TEST(RuleRecord, OptionFieldsKeepTheirWidths) {
    struct Case {
        bool forward, phone;
        int size;
        const char* text;
    } cases[] = {{false, false, 120, "00120"},
                 {true, false, 1, "10001"},
                 {false, true, 200, "01200"},
                 {true, true, 60, "11060"}};
    for (const Case& c : cases)
        EXPECT_EQ(RuleRecord::FormatForwardOptions(c.forward, c.phone, c.size), c.text);
    EXPECT_EQ(RuleRecord::FormatSaveOptions(true, false, true), "101");
    EXPECT_EQ(RuleRecord::FormatSaveOptions(false, true, false), "010");
}

TEST(RuleRecord, TheListFormHoldsNineLinesAndReadsShortListsAsEmptyFields) {
    RuleRecord rule = Rule({"a", "b", "c", "1", "0", "00120", "f", "000", "/x"});
    TStringList list;
    list.Add("stale");
    rule.ToList(list);
    ASSERT_EQ(list.Count(), 9);
    EXPECT_EQ(list.GetText(), "a\r\nb\r\nc\r\n1\r\n0\r\n00120\r\nf\r\n000\r\n/x\r\n");
    EXPECT_EQ(RuleRecord::FromList(list).ToLine(), rule.ToLine());

    TStringList shortList;
    shortList.SetText("only\r\ntwo\r\n");
    EXPECT_EQ(RuleRecord::FromList(shortList).ToLine(), "only|two||||||||");
}

TEST(FlattenRuleText, EveryLineEndBecomesOneSeparator) {
    struct Case {
        const char* text;
        const char* line;
    } cases[] = {
        {"", ""},
        {"a\r\nb\r\n", "a|b|"},
        {"a\r\n\r\n", "a||"},
        {"a\nb\n", "a|b|"},      // LF alone
        {"a\rb\r\n", "ab|"},     // a CR alone is dropped, not a separator
        {"a\r\rb\r\r\n", "ab|"}, // every one of them, more CRs than LFs
        {"a\r\r", "a"},
        {"a|b\r\n", "a|b|"}, // a separator in a field stays
        {"no end", "no end"},
    };
    TUtils utils;
    for (const Case& c : cases)
        EXPECT_EQ(utils.FlattenRuleText(c.text), c.line) << c.text;
}

TEST(RuleLists, EachListHasItsFileFolderAndCaption) {
    struct Case {
        bool reject, master;
        const char* path;
        const char* caption;
    } cases[] = {
        {false, true, "/shared/mPriorityMail.ini", "E-mail Priority"},
        {false, false, "/box/PriorityMail.ini", "E-mail Priority"},
        {true, true, "/shared/mRejectMail.ini", "E-mail Rejection"},
        {true, false, "/box/RejectMail.ini", "E-mail Rejection"},
    };
    for (const Case& c : cases) {
        const TRuleList& list = FindRuleList(c.reject, c.master);
        EXPECT_EQ(RuleListPath(list, "/shared", "/box/"), c.path);
        EXPECT_STREQ(list.Caption, c.caption);
    }
    // With no shared folder (no settings record) a Master list has no folder in front.
    EXPECT_EQ(RuleListPath(FindRuleList(true, true), "", "/box"), "mRejectMail.ini");
}

} // namespace
