#include <gtest/gtest.h>
#include <random>

#include "inbox/InboxForm.h"
#include "inbox/MessageText.h"
#include "support/GlobalScope.h"

namespace {

// Builds odd messages from pieces that sit on the edges of the rules: names at
// columns 18 to 21, folded lines, every line end, NUL bytes, quotes, long lines.
std::string RandomMessage(std::mt19937& random) {
    static const std::vector<std::string> pieces = {"From: a",
                                                    "Subject: s",
                                                    "Date: Mon, 3 Mar 2003 12:34:56 +0100",
                                                    "Content-Type: x",
                                                    "\tboundary=\"zz\"",
                                                    "boundary=zz",
                                                    "boundary=",
                                                    "--zz",
                                                    "zz",
                                                    "--zz--",
                                                    "\tfilename=\"f.txt\"",
                                                    "filename=NA",
                                                    "filename=g",
                                                    " filename=\"h\"; size=1",
                                                    "Resent-From: r",
                                                    "NA",
                                                    std::string(18, ' ') + "From: col19",
                                                    std::string(19, ' ') + "From: col20",
                                                    std::string(17, ' ') + "zz",
                                                    std::string(18, ' ') + "zz",
                                                    std::string(600, 'v'),
                                                    "Subject: " + std::string(700, 'w'),
                                                    "body text",
                                                    "",
                                                    "x From: y",
                                                    "From:From:"};
    static const std::vector<std::string> ends = {"\r\n", "\n", "\r", "\n\r", "\r\r\n"};
    std::string message;
    const int lines = std::uniform_int_distribution<int>(0, 14)(random);
    for (int i = 0; i < lines; ++i) {
        message += pieces[random() % pieces.size()];
        message += ends[random() % ends.size()];
        if (random() % 40 == 0) message += '\0';
    }
    if (random() % 3 == 0) message += pieces[random() % pieces.size()];
    return message;
}

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
