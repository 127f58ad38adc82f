#include <chrono>
#include <functional>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>

#include "support/EnvOverride.h"
#include "support/GlobalScope.h"
#include "support/TempFolder.h"

namespace {

class ExecuteFile : public ::testing::Test {
protected:
    TTempFolder folder;
    TEnvOverride env;
    TGlobalScope scope;
    std::string record = folder / "argv.txt";
    std::string program = HelperProgram("argv_recorder");
    void SetUp() override { env.Set("ARGV_RECORD_FILE", record.c_str()); }
};

TEST_F(ExecuteFile, ArgumentsReachTheProgramUntouched) {
    const AnsiString hostile = folder.Write("it's a \"$(touch pwned)\" `id`; *.eml", "x");
    ASSERT_TRUE(scope.U().ExecuteFile(program, std::vector<AnsiString>{hostile, "a b"}, true));
    EXPECT_EQ(AwaitFile(record), program + "\n" + hostile.str() + "\na b\n");
    EXPECT_FALSE(PathExists("pwned"));
    EXPECT_EQ(scope.U().WaitMs, 100u);
}

TEST_F(ExecuteFile, AnArgumentTextSplitsAtBlanksAndQuotesGroup) {
    ASSERT_TRUE(scope.U().ExecuteFile(program, "/eml: \"/tmp/a b.eml\"  x", false));
    EXPECT_EQ(AwaitFile(record), program + "\n/eml:\n/tmp/a b.eml\nx\n");
}

TEST_F(ExecuteFile, AMissingProgramFailsAndChangesNothingElse) {
    scope.U().WaitMs = 100;
    EXPECT_FALSE(scope.U().ExecuteFile(folder / "no-such-program", "", true));
    EXPECT_EQ(scope.U().ErrorText, "Could Not create process");
    EXPECT_EQ(scope.App().ProcessMessagesCalls(), 0);
    EXPECT_FALSE(scope.U().ExecuteFile("", "", false));
}

TEST_F(ExecuteFile, WaitingLetsTheLoopRunOnceAndWaitsNoLongerThanItsLimit) {
    const auto start = std::chrono::steady_clock::now();
    ASSERT_TRUE(scope.U().ExecuteFile("/bin/sleep", "5", true));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
    EXPECT_EQ(scope.App().ProcessMessagesCalls(), 1);
}

// Nothing is found by name, no document or folder is run as a program, and
// each opening takes only its own kind of entry.
TEST_F(ExecuteFile, EachWayOfStartingTakesOnlyItsOwnKind) {
    env.Set("PATH", (std::string(VD_TEST_HELPER_DIR) + ":/usr/bin:/bin").c_str());
    const std::string ran = folder / "ran";
    const std::string message = folder.Write("run.eml", "#!/bin/sh\ntouch '" + ran + "'\n");
    ::chmod(message.c_str(), 0755);
    const std::string box = folder.MakeFolder("box");
    ::mkfifo((folder / "pipe.eml").c_str(), 0600);
    struct TCase {
        const char* what;
        std::function<bool()> start;
    } cases[] = {
        {"a bare name in PATH", [&] { return scope.U().ExecuteFile("argv_recorder", "", false); }},
        {"a bare system name", [&] { return scope.U().ExecuteFile("sh", "-c true", false); }},
        {"a folder as a program", [&] { return scope.U().ExecuteFile(box, "", false); }},
        {"a message with the run bit, by its bare name",
         [&] { return scope.U().ExecuteFile("run.eml", "", false); }},
        {"a folder as a document", [&] { return scope.U().OpenDocument(box); }},
        {"a pipe as a document", [&] { return scope.U().OpenDocument(folder / "pipe.eml"); }},
        {"a missing document", [&] { return scope.U().OpenDocument(folder / "none.eml"); }},
        {"a file as a folder", [&] { return scope.U().OpenFolder(message); }},
        {"a name as a folder", [&] { return scope.U().OpenFolder("id"); }},
        {"an empty folder text", [&] { return scope.U().OpenFolder(""); }},
    };
    for (const TCase& c : cases)
        EXPECT_FALSE(c.start()) << c.what;
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    EXPECT_FALSE(PathExists(record)) << "argv_recorder ran";
    EXPECT_FALSE(PathExists(ran)) << "the message ran";
}

TEST(Shell, ReportsTheExitCodeOfAStartedProgram) {
    TTempFolder folder;
    TEnvOverride env;
    TGlobalScope scope;
    env.Set("ARGV_RECORD_FILE", (folder / "r").c_str());
    env.Set("ARGV_RECORD_EXIT", "3");
    const TShell::TProcessId pid = Shell->StartProgram(HelperProgram("argv_recorder"), {});
    ASSERT_GT(pid, 0);
    EXPECT_TRUE(Shell->WaitForExit(pid, 5000));
    EXPECT_EQ(Shell->ExitCode(pid), 3);
}

} // namespace
