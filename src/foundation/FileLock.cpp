#include "foundation/FileLock.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>

TFileLock::TFileLock(const AnsiString& path, std::chrono::milliseconds wait) {
    const AnsiString lockPath = LockPath(path);
    TFileDescriptor fd(
        ::open(lockPath.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0666));
    if (!fd.IsOpen()) return;
    const auto deadline = std::chrono::steady_clock::now() + wait;
    // A poll rather than a blocking flock: the window's thread must never
    // hang for good on a writer that does not let go.
    while (::flock(fd.Get(), LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR) return;
        if (std::chrono::steady_clock::now() >= deadline)
            throw EFCreateError("Cannot write \"" + path.str() +
                                "\": another program keeps it locked.");
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    file = std::move(fd);
}
