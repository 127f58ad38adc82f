#pragma once
// What the rules tests share: a temporary suite with a shared folder and a
// mailbox folder, the global objects, a TGlobals whose record names the
// shared folder, and a child process for what must run apart (a writer that
// is killed, a writer under a file-size limit, a writer without root).

#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "settings/Globals.h"
#include "support/GlobalScope.h"
#include "support/TempFolder.h"

inline void SetSharedFolder(TGlobals& globals, const std::string& folder) {
    auto& bytes = globals.Config.Bytes;
    std::fill(bytes.begin() + ConfigRecord::sharedFolder, bytes.end(), 0);
    std::memcpy(bytes.data() + ConfigRecord::sharedFolder, folder.data(), folder.size());
}

class RulesFixture : public ::testing::Test {
protected:
    TTempFolder folder;
    TGlobalScope scope{AnsiString(folder / "vellumdesk")};
    TGlobals globals;
    std::string shared = folder.MakeFolder("shared");
    std::string mailbox = folder.MakeFolder("data/Inbox");

    RulesFixture() {
        Utils->LogPath = AnsiString(folder / "Debug.txt");
        SetSharedFolder(globals, shared);
    }
    std::string Log() const { return ReadFileBytes(folder / "Debug.txt"); }
};

// Runs body in a forked child and returns its exit code, or 128 + the signal
// that ended it. The child never returns into the test.
inline int RunForked(const std::function<int()>& body) {
    const pid_t pid = fork();
    if (pid == 0) {
        int code = 99;
        try {
            code = body();
        } catch (...) {
            code = 98;
        }
        _exit(code);
    }
    int status = 0;
    waitpid(pid, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

// A user without rights to files of root: root reads and writes everything,
// so a test of an unreadable file or a read-only folder drops to this user.
inline bool DropRoot() {
    if (geteuid() != 0) return true;
    return setgid(65534) == 0 && setuid(65534) == 0;
}

// 0 when body, run in a child without root's rights, raises E; 1 when it
// raises nothing, 3 when the rights could not be dropped.
template <typename E> int RaisesWithoutRoot(const std::function<void()>& body) {
    return RunForked([&] {
        if (!DropRoot()) return 3;
        try {
            body();
        } catch (const E&) {
            return 0;
        }
        return 1;
    });
}
