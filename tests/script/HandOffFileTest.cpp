// A scripted session's temporary hand-off file goes with the session, whether
// it was interrupted (Ctrl+C, or ended by its id) or could not be written.

#include <chrono>
#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "support/ChildProcess.h"
#include "support/EnvOverride.h"
#include "support/TempFolder.h"

namespace {

namespace fs = std::filesystem;

int HandOffFiles(const std::string& folder) {
    int count = 0;
    for (const auto& entry : fs::directory_iterator(folder))
        count += entry.path().filename().string().starts_with("vellumdesk-handoff-");
    return count;
}

// A session's temporary files go to a folder of the test.
class HandOffFile : public ::testing::Test {
protected:
    TTempFolder folder;
    TEnvOverride env;
    const std::string temp = folder.MakeFolder("tmp");
    HandOffFile() {
        env.Set("TMPDIR", temp.c_str());
        env.Set("XDG_DATA_HOME", (folder / "data").c_str());
    }
};

TEST_F(HandOffFile, AnInterruptedSessionTakesItWithIt) {
    // Browse waits half a second each time: the session runs for twenty.
    std::string script = "handoff \"" + folder.MakeFolder("box") + "\"\nstart\n";
    for (int i = 0; i < 40; ++i)
        script += "click InboxFrm.LMDpfInbox\n";
    const std::string scriptPath = folder.Write("long.vds", script);
    const std::string cli = BuiltProgram("vellumdesk-cli");
    for (const int signal : {SIGINT, SIGTERM}) {
        const pid_t pid = fork();
        if (pid == 0) {
            execl(cli.c_str(), cli.c_str(), "script", scriptPath.c_str(), nullptr);
            _exit(127);
        }
        for (int i = 0; i < 500 && HandOffFiles(temp) == 0; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        EXPECT_EQ(HandOffFiles(temp), 1) << "the session never wrote its hand-off file";
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        kill(pid, signal);
        int status = 0;
        waitpid(pid, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << status;
        EXPECT_EQ(HandOffFiles(temp), 0) << "signal " << signal;
    }
}

// A disk that fills while the hand-off file is written (the write fails with
// EFBIG under a file-size limit whose signal is ignored): the session does not
// start, names the line, and leaves no file behind.
TEST_F(HandOffFile, OneThatCannotBeWrittenStopsTheSessionAndIsRemoved) {
    const std::string script =
        "# a long mailbox path\nhandoff \"" + std::string(300, 'm') + "\"\nstart\nshow InboxFrm\n";
    const TChildResult r =
        RunChild({"/bin/sh", "-c", "trap '' XFSZ; ulimit -f 0 && exec \"$0\" \"$@\"",
                  BuiltProgram("vellumdesk-cli"), "script", "-"},
                 script);
    EXPECT_EQ(r.exitCode, 2) << r.err;
    EXPECT_EQ(r.err, "line 2: cannot write the hand-off file\n");
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(HandOffFiles(temp), 0);
}

} // namespace
