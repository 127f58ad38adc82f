#include <gtest/gtest.h>

#include "inbox/InboxForm.h"
#include "support/GlobalScope.h"

namespace {

TStringList Lines(std::string_view text) {
    TStringList list;
    list.SetText(text);
    return list;
}

struct HeaderCase {
    const char* what;
    std::string_view message;
    const char* name;
    const char* value;
    int line; // -1: untouched
};

TEST(FindHeaderValue, ColumnLimitFirstMatchAndTheCutFromTheTrimmedLine) {
    TGlobalScope scope;
    TInboxFrm inbox;
    const std::string eighteen(18, ' '), nineteen(19, ' ');
    const std::string longValue = "Subject: " + std::string(600, 'v');
    const std::string atColumn19 = eighteen + "From: b";
    const std::string atColumn20 = nineteen + "From: b";
    for (const HeaderCase& c : std::initializer_list<HeaderCase>{
             {"cut counts from the line start", "Resent-From: a\nFrom: b\n", "From:", "t-From: a",
              0},
             {"indented line is trimmed first", "   From: b\n", "From:", "b", 0},
             {"column 19 matches", atColumn19, "From:", "b", 0},
             {"column 20 does not", atColumn20, "From:", "NA", -1},
             {"folded lines are not joined", "Subject: first\n\tsecond\n", "Subject:", "first", 0},
             {"empty value is not NA", "Subject:\n\tsecond\n", "Subject:", "", 0},
             {"case matters", "from: a\nFROM: b\nSubject : c\n", "From:", "NA", -1},
             {"body counts", "From: a\n\nSubject: in body\n", "Subject:", "in body", 2},
             {"first in file wins", "Subject: top\n\nSubject: part\n", "Subject:", "top", 0},
             {"only the first occurrence is looked at",
              "xxxxxxxxxxxxxxxxxxxxFrom: far From: near\n", "From:", "NA", -1}}) {
        int line = -1;
        EXPECT_EQ(inbox.FindHeaderValue(c.name, 0, Lines(c.message), &line), c.value) << c.what;
        EXPECT_EQ(line, c.line) << c.what;
    }
    EXPECT_EQ(inbox.FindHeaderValue("Subject:", 0, Lines(longValue)).Length(), 511)
        << "512 bytes from behind the name, the leading blank trimmed away";
}

TEST(FindHeaderValue, StartsAtTheGivenLine) {
    TGlobalScope scope;
    TInboxFrm inbox;
    EXPECT_EQ(inbox.FindHeaderValue("X:", 1, Lines("X: a\nX: b\n")), "b");
    EXPECT_EQ(inbox.FindHeaderValue("X:", 2, Lines("X: a\nX: b\n")), "NA");
}

struct WalkCase {
    const char* what;
    std::string_view message;
    bool walked;
    std::vector<std::string> names;
};

TEST(WalkMultipart, FollowsTheLineRules) {
    TGlobalScope scope;
    TInboxFrm inbox;
    for (const WalkCase& c : std::initializer_list<WalkCase>{
             {"two folded names",
              "Content-Type: multipart/mixed;\n\tboundary=\"b1\"\n\n--b1\nContent-Type: "
              "text/plain\n"
              "\nhi\n--b1\nContent-Disposition: attachment;\n\tfilename=\"a.txt\"\n\nx\n--b1\n"
              "Content-Disposition: attachment;\n\tfilename=\"b.pdf\"\n\ny\n--b1--\n",
              true,
              {"a.txt", "b.pdf"}},
             {"name behind a long header on one line",
              "\tboundary=b1\n--b1\nContent-Disposition: attachment; filename=\"a.txt\"\n--b1--\n",
              true,
              {}},
             {"boundary on the Content-Type line",
              "Content-Type: multipart/mixed; boundary=\"x\"\n--x\n\tfilename=\"a\"\n",
              false,
              {}},
             {"delimiter without dashes, walk ends after the closing line",
              "boundary=abc\nabc\nfilename=\"a\"\nabc--\n",
              true,
              {"a"}},
             {"a part without a name is passed over",
              "boundary=abc\n--abc\ntext\n--abc\n filename=\"b\"\n--abc--\n",
              true,
              {"b"}},
             {"a delimiter right behind a name line is passed over",
              "boundary=XYZ\n--XYZ\nfilename=a\n--XYZ\nfilename=b\n--XYZ--\n",
              true,
              {"a"}},
             {"two names with no delimiter between them",
              "boundary=abc\n--abc\nfilename=one\nfilename=two\n",
              true,
              {"one"}},
             {"text after the closing quote stays",
              "boundary=abc\n--abc\nfilename=\"a.txt\"; size=5\n",
              true,
              {"a.txt; size=5"}},
             {"filename=NA reads as not found", "boundary=abc\n--abc\nfilename=NA\n", true, {}},
             {"no delimiter in the file", "boundary=abc\nfilename=x\n", true, {}},
             {"no boundary", "Subject: x\n\nfilename=\"a\"\n", false, {}},
             {"empty boundary", "boundary=\"\"\n--\nfilename=a\n", false, {}}}) {
        TStringList names;
        EXPECT_EQ(inbox.WalkMultipart(Lines(c.message), names), c.walked) << c.what;
        EXPECT_EQ(std::vector<std::string>(names.begin(), names.end()), c.names) << c.what;
    }
}

TEST(WalkMultipart, YieldsOncePerPass) {
    TGlobalScope scope;
    TInboxFrm inbox;
    TStringList names;
    inbox.WalkMultipart(Lines("boundary=XYZ\n--XYZ\nfilename=a\n\ndata\n--XYZ\nfilename=c\n\n"
                              "data\n--XYZ--\n"),
                        names);
    EXPECT_EQ(names.Count(), 2);
    EXPECT_EQ(scope.App().ProcessMessagesCalls(), 3) << "two names, then the closing line";
}

} // namespace
