#include "platform/InstanceLock.h"

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

bool TInstanceLock::TryAcquire(const std::string& name) {
    const std::string path = PathFor(name);
    const auto slash = path.rfind('/');
    mkdir(path.substr(0, slash).c_str(), 0700);
    TFileDescriptor candidate(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (!candidate.IsOpen()) return false;
    if (flock(candidate.Get(), LOCK_EX | LOCK_NB) != 0) return false;
    fd = std::move(candidate);
    return true;
}
