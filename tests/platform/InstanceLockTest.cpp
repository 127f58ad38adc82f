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

} // namespace
