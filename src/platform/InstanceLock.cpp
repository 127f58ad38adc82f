#include "platform/InstanceLock.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

std::string TInstanceLock::PathFor(const std::string& name) {
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    std::string folder = runtime && *runtime ? runtime : "/tmp";
    if (folder == "/tmp") folder += "/" + name + "-" + std::to_string(getuid());
    return folder + "/" + name + ".lock";
}

// The folder of the lock must be ours alone: in a shared temp folder another
// user could make it first and hold our lock, so we could never start.
std::string TInstanceLock::CheckFolder(const std::string& folder) {
    if (::mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST)
        return "cannot make the lock folder " + folder;
    struct stat st {};
    if (::lstat(folder.c_str(), &st) != 0 || !S_ISDIR(st.st_mode))
        return "the lock folder " + folder + " is not a folder";
    if (st.st_uid != ::getuid()) return "the lock folder " + folder + " belongs to another user";
    if (st.st_mode & (S_IWGRP | S_IWOTH))
        return "the lock folder " + folder + " can be written by others";
    return "";
}

bool TInstanceLock::TryAcquire(const std::string& name) {
    const std::string path = PathFor(name);
    Problem = CheckFolder(path.substr(0, path.rfind('/')));
    if (!Problem.empty()) return false;
    TFileDescriptor candidate(
        ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600));
    if (!candidate.IsOpen()) {
        Problem = "cannot open the lock file " + path;
        return false;
    }
    if (flock(candidate.Get(), LOCK_EX | LOCK_NB) != 0) {
        Problem = "another instance is running";
        return false;
    }
    fd = std::move(candidate);
    return true;
}
