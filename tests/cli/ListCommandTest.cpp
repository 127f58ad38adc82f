#include <filesystem>
#include <gtest/gtest.h>

#include "support/ChildProcess.h"
#include "support/EnvOverride.h"
#include "support/TempFolder.h"

namespace {

TChildResult List(const std::vector<std::string>& args) {
    std::vector<std::string> argv{BuiltProgram("vellumdesk-cli"), "list"};
    argv.insert(argv.end(), args.begin(), args.end());
    return RunChild(argv);
}

class ListCommand : public ::testing::Test {
protected:
    TTempFolder folder;
    std::string box = folder / "Work";
    void SetUp() override {
        using namespace std::string_view_literals;
        folder.Write("Work/a.eml", "From: Ann\\Lee\r\nSubject: tab\there\r\n"
                                   "Date: Mon, 3 Mar 2003 12:34:56 +0100\r\n\r\nx\r\n");
        folder.Write("Work/b.eml", "From: Bob\r\nSubject: Re: x\r\n"
                                   "Date: Tue, 4 Feb 2003 12:34:56 +0100\r\n\r\nx\r\n");
        folder.Write("Work/nul.eml", "\0From: nobody"sv);
        folder.Write("Work/zero.eml", "");
        folder.Write("Work/CAPS.EML", "From: caps\r\n");
        folder.Write("Work/.dot.eml", "From: dot\r\nDate: Sat, 1 Jan 2000 00:00:00 +0000\r\n");
        folder.Write("Work/junk.eml", "\x89PNG\r\n\x1a\n\0\0\0\rIHDR"sv);
    }
};

TEST_F(ListCommand, PrintsTheRowsInWindowOrderWithEscapes) {
    const TChildResult r = List({box});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, "NA\tNA\t13.00.0000  \t16\t\tNA\tjunk.eml\n"
                     "Ann\\\\Lee\ttab\\there\t03.03.2003 12.34.56+0100\t77\t\tNA\ta.eml\n"
                     "Bob\tRe: x\t02.04.2003 12.34.56+0100\t70\t\tNA\tb.eml\n"
                     "dot\tNA\t01.01.2000 00.00.00+0000\t49\t\tNA\t.dot.eml\n");
    EXPECT_EQ(r.err, "4 Messages\n");
}

TEST_F(ListCommand, FilterAndClicksActAsAUserWould) {
    TChildResult r = List({box, "--filter", "from", "o", "--click", "0"});
    EXPECT_EQ(r.out.substr(0, 4), "Bob\t");
    EXPECT_NE(r.out.find("\ndot\t"), std::string::npos);
    EXPECT_EQ(r.err, "2 Messages\n");

    r = List({box, "--filter", "subject", ""});
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err, "0 Messages\n");

    r = List({box, "--click", "6", "--click", "6"});
    EXPECT_EQ(r.out.substr(0, 9), "NA\tNA\t13.") << "File Name descending puts junk.eml first";
}

// A folder argument is checked and made absolute before the session moves
// into the data folder; a relative one means the shell's folder.
TEST_F(ListCommand, AFolderArgumentIsCheckedAndResolvedWhereTheShellIs) {
    const std::string data = folder / "data";
    folder.Write("data/Quillpost Users/Work/decoy.eml", "From: decoy\r\n");
    TEnvOverride env;
    env.Set("XDG_DATA_HOME", data.c_str());
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path());
    struct TCase {
        std::string folder;
        int exitCode;
        std::string err;
    } cases[] = {
        {"Work", 0, "4 Messages\n"},
        {"./Work/", 0, "4 Messages\n"},
        {folder / "nowhere", 1, "list: " + (folder / "nowhere") + ": no such folder\n"},
        {"/etc/passwd", 1, "list: /etc/passwd: not a folder\n"},
        {"", 1, "list: the folder is empty\n"},
        {"bad\x1b]0;x\aname", 1, "list: bad\\x1B]0;x\\x07name: no such folder\n"},
    };
    for (const TCase& c : cases) {
        const TChildResult r = List({c.folder});
        EXPECT_EQ(r.exitCode, c.exitCode) << c.folder;
        EXPECT_EQ(r.err, c.err) << c.folder;
        EXPECT_EQ(r.out.find("decoy"), std::string::npos) << c.folder;
    }
    std::filesystem::current_path(before);
}

// Header bytes that would steer a terminal are shown as \xHH there; a pipe
// keeps the documented form.
TEST_F(ListCommand, ATerminalGetsNoControlBytes) {
    folder.Write("Esc/t.eml", "From: a\x1b]0;owned\x07"
                              "b\r\n");
    const TChildResult piped = List({folder / "Esc"});
    EXPECT_EQ(piped.out.rfind("a\x1b]0;owned\x07"
                              "b\t",
                              0),
              0u)
        << piped.out;
    const TChildResult tty =
        RunChild({"/usr/bin/script", "-qec",
                  BuiltProgram("vellumdesk-cli") + " list '" + (folder / "Esc") + "' 2>/dev/null",
                  "/dev/null"});
    EXPECT_EQ(tty.out.rfind("a\\x1B]0;owned\\x07b\t", 0), 0u) << tty.out;
}

TEST_F(ListCommand, BadArgumentsShowTheUsage) {
    for (const std::vector<std::string>& args :
         {std::vector<std::string>{}, {box, "--click", "7"}, {box, "--filter", "cc", "x"}}) {
        const TChildResult r = List(args);
        EXPECT_EQ(r.exitCode, 2);
        EXPECT_NE(r.err.find("usage:"), std::string::npos);
    }
}

} // namespace
