#include <filesystem>
#include <sys/stat.h>

#include "RulesFixture.h"
#include "foundation/FileLock.h"

namespace {

namespace fs = std::filesystem;

using AppendRuleLine = RulesFixture;

TEST_F(AppendRuleLine, AddsAtTheEndAndRewritesEveryLineWithCrLf) {
    struct Case {
        const char* name;
        const char* before; // null: no file yet
        const char* line;
        bool added;
        const char* after;
    } cases[] = {
        {"new file", nullptr, "a|", true, "a|\r\n"},
        {"duplicate", "a|\r\nb|\r\n", "b|", false, "a|\r\nb|\r\n"},
        {"duplicate apart from case", "Box|\r\n", "BOX|", false, "Box|\r\n"},
        {"no final line end", "a|", "b|", true, "a|\r\nb|\r\n"},
        {"blank lines stay", "a|\r\n\r\nb|\r\n", "c|", true, "a|\r\n\r\nb|\r\nc|\r\n"},
        {"CR and LF line ends", "a|\rb|\nc|", "d|", true, "a|\r\nb|\r\nc|\r\nd|\r\n"},
        {"bytes that are not UTF-8", "\xff\xfe|\x80|\r\n", "\xe9t\xe9|", true,
         "\xff\xfe|\x80|\r\n\xe9t\xe9|\r\n"},
        {"empty file", "", "a|", true, "a|\r\n"},
    };
    for (const Case& c : cases) {
        const std::string path = folder / (std::string(c.name) + ".ini");
        if (c.before) TTempFolder::WriteTo(path, c.before);
        EXPECT_EQ(globals.AppendRuleLine(AnsiString(path), c.line), c.added) << c.name;
        EXPECT_EQ(ReadFileBytes(path), c.after) << c.name;
    }
    // Only the missing file is logged.
    const std::string log = Log();
    EXPECT_NE(log.find("Filter file does not exist:" + (folder / "new file.ini")),
              std::string::npos);
    EXPECT_EQ(log.find("does not exist:" + (folder / "duplicate.ini")), std::string::npos);
}

TEST_F(AppendRuleLine, AFileThatCannotBeReadIsLeftAsItIs) {
    // A folder in the place of the file.
    const std::string dir = folder.MakeFolder("dir.ini");
    folder.Write("dir.ini/inside", "x");
    EXPECT_THROW(globals.AppendRuleLine(AnsiString(dir), "a|"), Exception);
    EXPECT_TRUE(fs::is_directory(dir));
    EXPECT_EQ(ReadFileBytes(dir + "/inside"), "x");

    // A file its reader has no right to read, in a folder it may write.
    const std::string locked = folder.Write("open/locked.ini", "keep|\r\n");
    chmod(folder.Path().c_str(), 0755);
    chmod((folder / "open").c_str(), 0777);
    chmod(locked.c_str(), 0200);
    EXPECT_EQ(
        RaisesWithoutRoot<EFOpenError>([&] { globals.AppendRuleLine(AnsiString(locked), "new|"); }),
        0);
    chmod(locked.c_str(), 0644);
    EXPECT_EQ(ReadFileBytes(locked), "keep|\r\n");
}

TEST_F(AppendRuleLine, AFolderThatIsMissingOrReadOnlyRaisesAndChangesNothing) {
    EXPECT_THROW(globals.AppendRuleLine(AnsiString(folder / "no/such/folder/r.ini"), "a|"),
                 EFCreateError);
    EXPECT_FALSE(PathExists(folder / "no"));

    const std::string readOnly = folder.MakeFolder("ro");
    const std::string path = folder.Write("ro/r.ini", "old|\r\n");
    chmod(folder.Path().c_str(), 0755);
    chmod(readOnly.c_str(), 0555);
    chmod(path.c_str(), 0666);
    EXPECT_EQ(
        RaisesWithoutRoot<EFCreateError>([&] { globals.AppendRuleLine(AnsiString(path), "new|"); }),
        0);
    EXPECT_EQ(ReadFileBytes(path), "old|\r\n");
}

// A huge rule file is read and added to whole, or, if it is too big to be
// read, left alone with a reason; it is never cut.
TEST_F(AppendRuleLine, AHugeFileIsNeverCut) {
    std::string big;
    const std::string line(99, 'x');
    while (big.size() < 50u * 1024 * 1024)
        big += line + "|\r\n";
    const std::string path = folder.Write("big.ini", big);
    try {
        EXPECT_TRUE(globals.AppendRuleLine(AnsiString(path), "tail|"));
        EXPECT_EQ(fs::file_size(path), big.size() + 7);
    } catch (const EFOpenError&) {
        EXPECT_EQ(fs::file_size(path), big.size());
    }
}

TEST_F(AppendRuleLine, ASecondWriterWaitsForTheLockAndGivesUpWithAReason) {
    const AnsiString path(folder / "r.ini");
    TFileLock held(path);
    ASSERT_TRUE(held.Held());
    try {
        TFileLock second(path, std::chrono::milliseconds(50));
        ADD_FAILURE() << "a second lock was granted";
    } catch (const EFCreateError& e) {
        EXPECT_NE(std::string(e.what()).find("locked"), std::string::npos);
    }
}

TEST_F(AppendRuleLine, TwoProcessesAppendingAtOnceLoseNoLine) {
    const AnsiString path(folder / "shared.ini");
    auto writer = [&](char tag) {
        return [&, tag] {
            for (int i = 0; i < 500; ++i)
                globals.AppendRuleLine(path,
                                       AnsiString(std::string(1, tag) + std::to_string(i)) + "|");
            return 0;
        };
    };
    const pid_t first = fork();
    if (first == 0) _exit(writer('a')());
    EXPECT_EQ(RunForked(writer('b')), 0);
    int status = 0;
    waitpid(first, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);

    TStringList lines;
    lines.LoadFromFile(path);
    ASSERT_EQ(lines.Count(), 1000);
    for (char tag : {'a', 'b'})
        for (int i = 0; i < 500; ++i)
            EXPECT_GE(lines.IndexOf(AnsiString(std::string(1, tag) + std::to_string(i) + "|")), 0);
}

} // namespace
