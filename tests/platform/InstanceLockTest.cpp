#include <functional>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/InstanceLock.h"
#include "support/EnvOverride.h"
#include "support/TempFolder.h"

namespace {

// The lock's folder must be ours alone: one that another user owns or others
// may write is refused with a reason, never used.
TEST(InstanceLock, TakesOnlyAFolderThatIsOursAlone) {
    TTempFolder folder;
    TEnvOverride env;
    const std::string runtime = folder.MakeFolder("run");
    env.Set("XDG_RUNTIME_DIR", runtime.c_str());
    struct TCase {
        mode_t mode;
        bool foreignOwner;
        std::string problem;
    } cases[] = {
        {0777, false, "the lock folder " + runtime + " can be written by others"},
        {0720, false, "the lock folder " + runtime + " can be written by others"},
        {0700, true, "the lock folder " + runtime + " belongs to another user"},
        {0700, false, ""},
    };
    for (const TCase& c : cases) {
        ::chmod(runtime.c_str(), c.mode);
        if (c.foreignOwner && (::getuid() != 0 || ::chown(runtime.c_str(), 1, 1) != 0)) continue;
        TInstanceLock lock;
        EXPECT_EQ(lock.TryAcquire("VellumdeskTest"), c.problem.empty()) << c.problem;
        EXPECT_EQ(lock.Problem, c.problem);
        if (c.foreignOwner) ::chown(runtime.c_str(), ::getuid(), ::getgid());
        if (!lock.Held()) continue;
        TInstanceLock second;
        EXPECT_FALSE(second.TryAcquire("VellumdeskTest"));
        EXPECT_EQ(second.Problem, "another instance is running");
    }
}

// Without a runtime folder the lock lies in a folder of its own in /tmp, which
// anybody could have made first: only one that is ours alone is used.
TEST(InstanceLock, InTheSharedTempFolderOnlyAFolderOfOursIsUsed) {
    TEnvOverride env;
    env.Set("XDG_RUNTIME_DIR", nullptr);
    const std::string name = "VellumdeskTest" + std::to_string(::getpid());
    const std::string own = "/tmp/" + name + "-" + std::to_string(::getuid());
    ASSERT_EQ(TInstanceLock::PathFor(name), own + "/" + name + ".lock");
    TTempFolder elsewhere;
    struct TCase {
        const char* what;
        std::function<bool()> make; // false: cannot be made here
        std::string problem;
    } cases[] = {
        {"another user's folder",
         [&] {
             return ::getuid() == 0 && ::mkdir(own.c_str(), 0700) == 0 &&
                    ::chown(own.c_str(), 1, 1) == 0;
         },
         "the lock folder " + own + " belongs to another user"},
        {"a link to a folder",
         [&] { return ::symlink(elsewhere.Path().c_str(), own.c_str()) == 0; },
         "the lock folder " + own + " is not a folder"},
        {"an open folder",
         [&] { return ::mkdir(own.c_str(), 0777) == 0 && ::chmod(own.c_str(), 0777) == 0; },
         "the lock folder " + own + " can be written by others"},
        {"none yet", [] { return true; }, ""},
    };
    for (const TCase& c : cases) {
        if (!c.make()) {
            ::rmdir(own.c_str());
            continue;
        }
        {
            TInstanceLock lock;
            EXPECT_EQ(lock.TryAcquire(name), c.problem.empty()) << c.what;
            EXPECT_EQ(lock.Problem, c.problem) << c.what;
        }
        ::unlink((own + "/" + name + ".lock").c_str());
        if (::rmdir(own.c_str()) != 0) ::unlink(own.c_str());
    }
    EXPECT_FALSE(PathExists(own));
}

} // namespace
