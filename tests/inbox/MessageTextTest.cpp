#include <gtest/gtest.h>

#include "inbox/InboxForm.h"
#include "inbox/MessageText.h"
#include "support/GlobalScope.h"
#include "support/RandomMessage.h"

namespace {

// The reader of the scan works on bytes in place; the reader of the window's
// interface works on a list of lines. They must agree on every message.
TEST(MessageText, AgreesWithTheLineReaderOnOddMessages) {
    TGlobalScope scope;
    TInboxFrm inbox;
    std::mt19937 random(20261123);
    TMessageText text;
    for (int round = 0; round < 4000; ++round) {
        const std::string message = RandomMessage(random);
        text.SetText(message);
        TStringList lines;
        lines.SetText(message);
        ASSERT_EQ(text.HasLines(), lines.Count() > 0) << round;
        for (const char* name : {"From:", "Subject:", "Date:", "Content-Type:", "boundary=", "zz"})
            ASSERT_EQ(AnsiString(FindHeader(text, name)), inbox.FindHeaderValue(name, 0, lines))
                << "round " << round << " name " << name;
        TStringList expected, walked;
        const bool expectedWalk = inbox.WalkMultipart(lines, expected);
        const bool walk = WalkMultipart(
            text, [&](const AnsiString& name) { walked.Add(name); }, [] {});
        ASSERT_EQ(walk, expectedWalk) << round;
        ASSERT_EQ(walked.GetText(), expected.GetText()) << round;
    }
}

TEST(MessageText, ALineAtTheVeryEndAndTheNextLine) {
    TMessageText text;
    text.SetText("a\r\nFrom: x");
    const auto match = text.Find("From:", 0);
    ASSERT_TRUE(match);
    EXPECT_EQ(match->value, "x");
    EXPECT_EQ(match->next, 10u);
    EXPECT_EQ(text.NextLine(0), 3u);
    EXPECT_FALSE(text.Find("From:", 10));
}

} // namespace
