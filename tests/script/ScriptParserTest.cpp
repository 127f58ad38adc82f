#include <gtest/gtest.h>

#include "script/ScriptParser.h"

namespace {

struct SplitCase {
    const char* line;
    std::vector<std::string> words;
};

class SplitsScriptLines : public testing::TestWithParam<SplitCase> {};

TEST_P(SplitsScriptLines, IntoWords) {
    std::string error;
    const auto words = SplitScriptLine(GetParam().line, error);
    ASSERT_TRUE(words) << error;
    EXPECT_EQ(*words, GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, SplitsScriptLines,
    testing::Values(SplitCase{"", {}}, SplitCase{"   # a comment", {}},
                    SplitCase{"click  LMDpfRefresh", {"click", "LMDpfRefresh"}},
                    SplitCase{"type LMDcbFilterText \"a b\"", {"type", "LMDcbFilterText", "a b"}},
                    SplitCase{R"(answer "say \"OK\"\t\\ \x41\r\n")",
                              {"answer", "say \"OK\"\t\\ A\r\n"}},
                    SplitCase{"type X \"\"", {"type", "X", ""}},
                    SplitCase{"select lv 0 2 # not a comment",
                              {"select", "lv", "0", "2", "#", "not", "a", "comment"}}));

TEST(ScriptParser, ReportsTheLineOfAMalformedQuote) {
    const std::vector<std::pair<const char*, const char*>> bad = {
        {"start\n\nclick \"open", "missing closing quote"},
        {"start\r\n\r\ntype x \"\\q\"", "unknown escape \\q"},
        {"start\n\ntype x \"\\x4\"", "\\x needs two hex digits"},
        {"start\n\ntype x \"a\"b", "text after a closing quote"},
    };
    for (const auto& [text, reason] : bad) {
        std::vector<TScriptCommand> commands;
        TScriptError error;
        EXPECT_FALSE(ParseScript(text, commands, error)) << text;
        EXPECT_EQ(error.Line, 3) << text;
        EXPECT_EQ(error.Reason, reason) << text;
    }
}

TEST(ScriptParser, NumbersCommandsByTheirLines) {
    std::vector<TScriptCommand> commands;
    TScriptError error;
    ASSERT_TRUE(ParseScript("# setup\nhandoff /tmp/x Ann\r\n\nstart\n", commands, error));
    ASSERT_EQ(commands.size(), 2u);
    EXPECT_EQ(commands[0].Line, 2);
    EXPECT_EQ(commands[0].Words, (std::vector<std::string>{"handoff", "/tmp/x", "Ann"}));
    EXPECT_EQ(commands[1].Line, 4);
}

} // namespace
