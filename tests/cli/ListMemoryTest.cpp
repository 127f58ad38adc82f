#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/ChildProcess.h"
#include "support/EnvOverride.h"
#include "support/TempFolder.h"

namespace {

struct TListRun {
    int status = -1;
    long peakKiB = 0;
    std::string out;
};

// Runs `vellumdesk-cli args...` with its address space limited, and reports
// its peak resident memory.
TListRun RunUnderLimit(const std::vector<std::string>& args, const std::string& outPath,
                       rlim_t limit) {
    const std::string program = BuiltProgram("vellumdesk-cli");
    std::vector<char*> argv{const_cast<char*>(program.c_str())};
    for (const std::string& arg : args)
        argv.push_back(const_cast<char*>(arg.c_str()));
    argv.push_back(nullptr);
    const pid_t pid = ::fork();
    if (pid == 0) {
        const rlimit as{limit, limit};
        ::setrlimit(RLIMIT_AS, &as);
        const int out = ::open(outPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
        ::dup2(out, 1);
        const int null = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
        ::dup2(null, 2);
        ::execv(program.c_str(), argv.data());
        ::_exit(127);
    }
    TListRun run;
    rusage usage{};
    ::wait4(pid, &run.status, 0, &usage);
    run.peakKiB = usage.ru_maxrss;
    run.out = ReadFileBytes(outPath);
    return run;
}

// A 2 GiB message that is mostly a hole, and one with a 50 MB line: the
// list reads them with the memory of a small one and gives the rows the
// whole text gives.
TEST(ListMemory, HugeMessagesStayWithinABoundedMemory) {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "AddressSanitizer reserves more address space than the limit allows";
#endif
    TTempFolder folder;
    const std::string sparse = folder.Write("box/sparse.eml", "From: hole\r\nSubject: s\r\n");
    ASSERT_EQ(::truncate(sparse.c_str(), 2LL << 30), 0);
    const std::string longLine =
        "From: wide\r\nX: " + std::string(50 << 20, 'w') +
        "\r\nSubject: after\r\nboundary=b\r\n--b\r\nfilename=\"w.bin\"\r\n";
    folder.Write("box/long.eml", longLine);

    const TListRun run = RunUnderLimit({"list", folder / "box"}, folder / "out.txt", 1536ULL << 20);
    ASSERT_TRUE(WIFEXITED(run.status) && WEXITSTATUS(run.status) == 0) << run.status;
    // Equal dates: the order is the directory's.
    const std::string hole = "hole\ts\t13.00.0000  \t2147483648\t\tNA\tsparse.eml\n";
    const std::string wide =
        "wide\tafter\t13.00.0000  \t" + std::to_string(longLine.size()) + "\tw.bin\tNA\tlong.eml\n";
    EXPECT_TRUE(run.out == hole + wide || run.out == wide + hole) << run.out;
    EXPECT_LT(run.peakKiB, 64 * 1024);

    // The search reads the same files block by block, for its hits and for
    // the rows it makes of them.
    for (const bool hits : {true, false}) {
        std::vector<std::string> args{"search", folder / "box", "after", "--where", "current"};
        if (hits) args.push_back("--hits");
        const TListRun search = RunUnderLimit(args, folder / "out.txt", 1536ULL << 20);
        ASSERT_TRUE(WIFEXITED(search.status) && WEXITSTATUS(search.status) == 0) << search.status;
        EXPECT_EQ(search.out, hits ? folder / "box/long.eml=0002-010\n"
                                   : "Subject: after\t \twide\tafter\t" + folder / "box/long.eml\n")
            << hits;
        EXPECT_LT(search.peakKiB, 64 * 1024) << hits;
    }
}

// A mailbox list of thirty million one-letter lines is read (it is below the
// whole-file limit) but cannot be held under the memory limit: the command
// ends on its internal error with the reason and status 3, and a scripted
// session names the command that was running; neither aborts nor claims
// success.
TEST(InternalError, MemoryThatRunsOutEndsTheCommandWithItsReasonAndStatusThree) {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "AddressSanitizer reserves more address space than the limit allows";
#endif
    TTempFolder folder;
    TEnvOverride env;
    env.Set("XDG_DATA_HOME", (folder / "data").c_str());
    std::string lines(60'000'000, 'a');
    for (std::size_t i = 1; i < lines.size(); i += 2)
        lines[i] = '\n';
    folder.Write("data/Quillpost Users/IconMailbox.ini", lines);
    lines = std::string();
    const std::string box = folder.MakeFolder("box");
    struct TCase {
        std::vector<std::string> args;
        std::string input, err;
    } cases[] = {
        {{"script", "-"},
         "handoff \"" + box + "\"\nstart\nshow InboxFrm\n",
         "line 2: internal error: std::bad_alloc\n"},
        {{"search", box, "x", "--where", "all"},
         "",
         "vellumdesk-cli: search: internal error: std::bad_alloc\n"},
    };
    for (const TCase& c : cases) {
        std::vector<std::string> argv{"/bin/sh", "-c", "ulimit -v 400000 && exec \"$0\" \"$@\"",
                                      BuiltProgram("vellumdesk-cli")};
        argv.insert(argv.end(), c.args.begin(), c.args.end());
        const TChildResult r = RunChild(argv, c.input);
        EXPECT_EQ(r.exitCode, 3) << c.args[0] << ": " << r.err;
        EXPECT_EQ(r.err, c.err) << c.args[0];
    }
}

} // namespace
