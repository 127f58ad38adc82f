// A scripted session that is interrupted (Ctrl+C, or ended by its id) while it
// runs takes its temporary hand-off file with it.

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

TEST(InterruptedSession, TakesItsHandOffFileWithIt) {
    TTempFolder folder;
    TEnvOverride env;
    const std::string temp = folder.MakeFolder("tmp");
    env.Set("TMPDIR", temp.c_str());
    env.Set("XDG_DATA_HOME", (folder / "data").c_str());
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

} // namespace
