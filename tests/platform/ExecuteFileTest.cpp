#include <chrono>
#include <gtest/gtest.h>
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
    env.Set("PATH", (std::string(VD_TEST_HELPER_DIR) + ":/usr/bin:/bin").c_str());
    const auto start = std::chrono::steady_clock::now();
    ASSERT_TRUE(scope.U().ExecuteFile("sleep", "5", true));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
    EXPECT_EQ(scope.App().ProcessMessagesCalls(), 1);
    ASSERT_TRUE(scope.U().ExecuteFile("argv_recorder", "", false))
        << "a bare name is found in PATH";
    EXPECT_EQ(AwaitFile(record), program + "\n");
}

TEST(Shell, ReportsTheExitCodeOfAStartedProgram) {
    TTempFolder folder;
    TEnvOverride env;
    TGlobalScope scope;
    env.Set("ARGV_RECORD_FILE", (folder / "r").c_str());
    env.Set("ARGV_RECORD_EXIT", "3");
    const TShell::TProcessId pid = Shell->Open(HelperProgram("argv_recorder"), {});
    ASSERT_GT(pid, 0);
    EXPECT_TRUE(Shell->WaitForExit(pid, 5000));
    EXPECT_EQ(Shell->ExitCode(pid), 3);
}

} // namespace
