// vellumdesk-cli search as a user runs it: the scopes, the options, the rows
// and the failures, on real mailbox folders.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "support/ChildProcess.h"
#include "support/EnvOverride.h"
#include "support/TempFolder.h"

namespace {

class SearchCommand : public ::testing::Test {
protected:
    TTempFolder folder;
    TEnvOverride env;
    std::string work = folder / "Work", home = folder / "Home";

    void SetUp() override {
        env.Set("XDG_DATA_HOME", (folder / "data").c_str());
        folder.Write("data/Quillpost Users/IconMailbox.ini",
                     "Work=" + work + "\r\nGone=" + folder / "missing" + "\r\nTwice=" + home +
                         "\r\nTwice=" + work + "\r\n\r\nBare\r\n");
        folder.Write("data/Quillpost Users/top.eml", "top sat\r\n");
        folder.Write("Work/a.eml", "From: Ann\r\nSubject: Cat news\r\nDate: Mon\r\n\r\n"
                                   "a cat sat\r\nCAT\r\n");
        folder.Write("Work/b.eml", "From: Bob\r\nSubject: dog\r\n\r\nno match\r\n");
        folder.Write("Work/.hidden.eml", "a cat sat\r\n");
        folder.Write("Home/c.eml", "Subject: x\r\n\tcat sat\r\n");
        folder.Write("Home/d=e.eml", "a cat sat\r\n");
    }

    TChildResult Search(std::vector<std::string> args) {
        std::vector<std::string> argv{BuiltProgram("vellumdesk-cli"), "search"};
        argv.insert(argv.end(), args.begin(), args.end());
        return RunChild(argv);
    }

    // Files come in folder order, which is no sorted order: compare sorted lines.
    static std::vector<std::string> Lines(const std::string& out) {
        std::vector<std::string> lines;
        std::istringstream in(out);
        for (std::string line; std::getline(in, line);)
            lines.push_back(line);
        std::sort(lines.begin(), lines.end());
        return lines;
    }
};

TEST_F(SearchCommand, HitsOfEachScopeAndOption) {
    const std::string a = work + "/a.eml", hidden = work + "/.hidden.eml", c = home + "/c.eml",
                      d = home + "/d=e.eml";
    struct Case {
        const char* name;
        std::vector<std::string> args;
        std::vector<std::string> hits;
    };
    const std::vector<Case> cases = {
        {"current ignores case, skips hidden files",
         {"cat", "--where", "current"},
         {a + "=0001-010", a + "=0004-003", a + "=0005-001"}},
        {"case sensitive", {"cat", "--where", "current", "--case"}, {a + "=0004-003"}},
        {"listed rows include hidden files",
         {"cat", "--case"},
         {hidden + "=0000-003", a + "=0004-003"}},
        {"whole words: the blank in front",
         {"cat", "--whole-word"},
         {hidden + "=0000-002", a + "=0001-009", a + "=0004-002"}},
        {"all: a missing folder adds nothing, a name twice searches its first folder twice, "
         "a bare name the bare mask in the data folder, an empty line nothing",
         {"sat", "--where", "all"},
         {a + "=0004-007", c + "=0001-006", c + "=0001-006", d + "=0000-007", d + "=0000-007",
          "top.eml=0000-005"}},
        {"a filter narrows the listed rows",
         {"dog", "--filter", "from", "Bob"},
         {work + "/b.eml=0001-010"}},
    };
    for (const Case& c0 : cases) {
        std::vector<std::string> args{work};
        args.insert(args.end(), c0.args.begin(), c0.args.end());
        args.push_back("--hits");
        const TChildResult r = Search(args);
        EXPECT_EQ(r.exitCode, 0) << c0.name << r.err;
        std::vector<std::string> expected = c0.hits;
        std::sort(expected.begin(), expected.end());
        EXPECT_EQ(Lines(r.out), expected) << c0.name;
    }
}

TEST_F(SearchCommand, RowsShowTheLineAndTheHeaderValuesAndSkipPathsWithEquals) {
    TChildResult r = Search({work, "cat", "--case", "--where", "current"});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, "a cat sat\tMon\tAnn\tCat news\t" + work + "/a.eml\n");

    r = Search({home, "sat", "--where", "current"});
    EXPECT_EQ(r.exitCode, 0) << "hits, though the file with = in its name gives no row";
    EXPECT_EQ(r.out, "\\tcat sat\t \t \tx\t" + home + "/c.eml\n");
}

TEST_F(SearchCommand, NothingFoundIsTextNotFoundWithStatusOne) {
    const std::vector<std::vector<std::string>> cases = {
        {work, "zebra", "--where", "all"},
        {work, "", "--where", "current"},
        {work, "cat", "--filter", "from", "Bob"},
        {work, "a\xFF\x01"},
    };
    for (const auto& args : cases) {
        const TChildResult r = Search(args);
        EXPECT_EQ(r.exitCode, 1) << args[1];
        EXPECT_EQ(r.out, "");
        EXPECT_EQ(r.err, "Text not found!\n");
    }
    EXPECT_EQ(Search({work}).exitCode, 2);
    EXPECT_EQ(Search({work, "x", "--where", "everywhere"}).exitCode, 2);
}

// The folder is checked and made absolute where the shell stands, before the
// session moves into the data folder.
TEST_F(SearchCommand, AFolderArgumentIsCheckedAndResolvedWhereTheShellIs) {
    folder.Write("data/Quillpost Users/Work/decoy.eml", "a cat sat\r\n");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path());
    struct TCase {
        std::string folder;
        int exitCode;
        std::string out, err;
    } cases[] = {
        {"Work", 0, work + "/a.eml=0004-003\n", ""},
        {"./Work/", 0, folder / "./Work/a.eml=0004-003\n", ""},
        {folder / "nowhere", 1, "", "search: " + (folder / "nowhere") + ": no such folder\n"},
        {"/etc/passwd", 1, "", "search: /etc/passwd: not a folder\n"},
        {"", 1, "", "search: the folder is empty\n"},
    };
    for (const TCase& c : cases) {
        const TChildResult r = Search({c.folder, "cat", "--case", "--where", "current", "--hits"});
        EXPECT_EQ(r.exitCode, c.exitCode) << c.folder;
        EXPECT_EQ(r.out, c.out) << c.folder;
        EXPECT_EQ(r.err, c.err) << c.folder;
    }
    std::filesystem::current_path(before);
}

// On a terminal neither the hit lines nor the rows carry a control byte of a
// file name or a header: they are shown as \xHH.
TEST_F(SearchCommand, ATerminalGetsNoControlBytes) {
    const std::string esc = folder / "Esc";
    folder.Write("Esc/x\x1b[31mred.eml", "From: a\x1b]0;owned\x07b\r\n\r\nneedle\r\n");
    for (const char* hits : {" --hits", ""}) {
        const TChildResult tty = RunChild({"/usr/bin/script", "-qec",
                                           BuiltProgram("vellumdesk-cli") + " search '" + esc +
                                               "' needle --where current" + hits + " 2>/dev/null",
                                           "/dev/null"});
        EXPECT_EQ(tty.out.find('\x1b'), std::string::npos) << hits << tty.out;
        EXPECT_NE(tty.out.find("x\\x1B[31mred.eml"), std::string::npos) << hits << tty.out;
    }
}

TEST_F(SearchCommand, AHundredKilobyteTextIsFoundWhereItStands) {
    const std::string text(100 * 1024, 'k');
    folder.Write("Work/long.eml", "x\r\n" + text + "\r\n");
    const TChildResult r = Search({work, text, "--where", "current", "--hits"});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out, work + "/long.eml=0001-001\n");
}

} // namespace
