#include <functional>
#include <gtest/gtest.h>
#include <new>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

#include "foundation/Exceptions.h"
#include "inbox/ProgramEntry.h"
#include "platform/HeadlessApplication.h"
#include "platform/ScriptedDialogs.h"
#include "support/EnvOverride.h"
#include "support/GlobalScope.h"
#include "support/TempFolder.h"

namespace {

// A first instance in a child process: it takes the lock, says so through
// ready, then holds the lock until release is closed.
pid_t StartFirstInstance(const int (&readyPipe)[2], const int (&releasePipe)[2]) {
    const pid_t pid = fork();
    if (pid != 0) return pid;
    close(readyPipe[0]);
    close(releasePipe[1]);
    const int ready = readyPipe[1], release = releasePipe[0];
    TProgramParts parts;
    parts.initialiseApplication = [] {
        static THeadlessApplication application;
        Application = &application;
    };
    parts.run = [&](TInboxFrm&) {
        const char go = 1;
        if (write(ready, &go, 1) != 1) _exit(3);
        char ignored;
        while (read(release, &ignored, 1) > 0) {
        }
    };
    _exit(RunProgram(parts) == 0 ? 0 : 4);
}

class SingleInstance : public ::testing::Test {
protected:
    TTempFolder runtime;
    TEnvOverride env;
    TGlobalScope scope;
    void SetUp() override { env.Set("XDG_RUNTIME_DIR", runtime.Path().c_str()); }

    // Runs the entry in this process; true if it got as far as the loop.
    bool SecondStartRuns() {
        bool ran = false;
        TProgramParts parts;
        parts.run = [&](TInboxFrm&) { ran = true; };
        EXPECT_EQ(RunProgram(parts), 0);
        return ran;
    }
};

TEST_F(SingleInstance, ASecondStartEndsAtOnceAndTheFirstRunsOn) {
    int ready[2], release[2];
    ASSERT_EQ(pipe(ready), 0);
    ASSERT_EQ(pipe(release), 0);
    const pid_t first = StartFirstInstance(ready, release);
    close(ready[1]);
    close(release[0]);
    char go = 0;
    ASSERT_EQ(read(ready[0], &go, 1), 1);

    EXPECT_FALSE(SecondStartRuns());
    EXPECT_EQ(waitpid(first, nullptr, WNOHANG), 0) << "the first instance is undisturbed";

    close(release[1]);
    int status = 0;
    ASSERT_EQ(waitpid(first, &status, 0), first);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    EXPECT_TRUE(SecondStartRuns()) << "after the first ends, a start runs";
    close(ready[0]);
}

TEST_F(SingleInstance, ACrashedInstanceLeavesNoStaleLock) {
    int ready[2], release[2];
    ASSERT_EQ(pipe(ready), 0);
    ASSERT_EQ(pipe(release), 0);
    const pid_t first = StartFirstInstance(ready, release);
    char go = 0;
    ASSERT_EQ(read(ready[0], &go, 1), 1);
    kill(first, SIGKILL); // the lock goes with the process
    waitpid(first, nullptr, 0);
    EXPECT_TRUE(SecondStartRuns());
    for (int fd : {ready[0], ready[1], release[0], release[1]})
        close(fd);
}

// Whatever escapes every handler ends the run with status 3; the box and the
// caller get a text that says what happened, never an empty one.
TEST(ProgramEntry, AnUncaughtErrorEndsTheRunWithItsTextAndStatusThree) {
    TGlobalScope scope;
    struct TCase {
        std::function<void()> raise;
        const char* text;
    } cases[] = {
        {[] { throw EFOpenError("Cannot open file \"x\""); }, "Cannot open file \"x\""},
        {[] { throw std::runtime_error("broken"); }, "broken"},
        {[] { throw std::bad_alloc(); }, "std::bad_alloc"},
        {[] { throw std::runtime_error(""); }, "unknown internal error"},
        {[] { throw 7; }, "unknown internal error"},
    };
    for (const TCase& c : cases) {
        TScriptedDialogs dialogs;
        Dialogs = &dialogs;
        TProgramParts parts;
        parts.singleInstance = false;
        parts.run = [&](TInboxFrm&) { c.raise(); };
        AnsiString heard;
        parts.uncaught = [&](const AnsiString& message) { heard = message; };
        EXPECT_EQ(RunProgram(parts), 3) << c.text;
        Dialogs = nullptr;
        EXPECT_EQ(heard, c.text);
        ASSERT_EQ(dialogs.Transcript().size(), 1u) << c.text;
        EXPECT_EQ(dialogs.Transcript()[0], AnsiString("exception: ") + c.text);
    }
}

TEST(ProgramEntry, SetsTheTitleAndHelpFile) {
    TGlobalScope scope;
    TProgramParts parts;
    parts.singleInstance = false;
    AnsiString title, help;
    parts.run = [&](TInboxFrm&) {
        title = Application->Title;
        help = Application->HelpFile;
    };
    EXPECT_EQ(RunProgram(parts), 0);
    EXPECT_EQ(title, "Vellumdesk");
    EXPECT_EQ(help, "Help/QUILLPOST.HLP");
}

} // namespace
