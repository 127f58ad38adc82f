#include "foundation/AtomicFile.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "foundation/FileDescriptor.h"

namespace {

// The file that a write to path really changes: a symbolic link is followed
// to its target, so the link itself stays in place.
std::string ResolveLinkTarget(const std::string& path) {
    std::string current = path;
    for (int hops = 0; hops < 40; ++hops) {
        struct stat st {};
        if (lstat(current.c_str(), &st) != 0 || !S_ISLNK(st.st_mode)) return current;
        std::string target(PATH_MAX, '\0');
        const ssize_t n = readlink(current.c_str(), target.data(), target.size());
        if (n < 0) return current;
        target.resize(static_cast<std::size_t>(n));
        if (!target.empty() && target[0] != '/') {
            const auto slash = current.rfind('/');
            if (slash != std::string::npos) target = current.substr(0, slash + 1) + target;
        }
        current = target;
    }
    return current;
}

// The rename is only durable once the folder's entry is on the disk too.
void SyncFolderOf(const std::string& path) {
    const auto slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : path.substr(0, slash + 1);
    TFileDescriptor dir(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (dir.IsOpen()) ::fsync(dir.Get());
}

[[noreturn]] void Fail(const AnsiString& path, int error) {
    throw EFCreateError("Cannot create file \"" + path.str() + "\". " + std::strerror(error));
}

} // namespace

void SaveFileAtomically(const AnsiString& path, std::string_view bytes) {
    const std::string target = ResolveLinkTarget(path.str());
    struct stat old {};
    const bool exists = stat(target.c_str(), &old) == 0;
    // A folder or a device of that name is never replaced by a file.
    if (exists && !S_ISREG(old.st_mode)) Fail(path, S_ISDIR(old.st_mode) ? EISDIR : EINVAL);
    std::string temp = target + ".XXXXXX";
    const int raw = mkstemp(temp.data());
    if (raw < 0) Fail(path, errno);
    TFileDescriptor fd(raw);
    const mode_t mode = exists ? (old.st_mode & 07777) : 0644;
    const bool written =
        WriteAll(fd.Get(), bytes) && fchmod(fd.Get(), mode) == 0 && fsync(fd.Get()) == 0;
    int error = errno;
    fd.Close();
    if (written && rename(temp.c_str(), target.c_str()) == 0) {
        SyncFolderOf(target);
        return;
    }
    if (written) error = errno;
    unlink(temp.c_str());
    Fail(path, error);
}
