#pragma once
// One running instance at a time. The lock is an flock on a file named after
// the lock in the runtime folder; it dies with the process, so a crashed
// instance leaves nothing stale, and it is opened close-on-exec, so programs
// the instance starts never hold it.

#include <string>

#include "foundation/FileDescriptor.h"

class TInstanceLock {
public:
    // Where the lock file of name lives: $XDG_RUNTIME_DIR, else the temp folder.
    static std::string PathFor(const std::string& name);

    // True if this process now holds the lock; false if another instance
    // does, or the lock's folder is not safe to use (Problem says which).
    bool TryAcquire(const std::string& name);
    void Release() { fd.Close(); }
    bool Held() const { return fd.IsOpen(); }

    std::string Problem; // why the last TryAcquire failed, or empty

private:
    // Creates the folder 0700; a text on why it cannot be used, or empty.
    static std::string CheckFolder(const std::string& folder);
    TFileDescriptor fd;
};
