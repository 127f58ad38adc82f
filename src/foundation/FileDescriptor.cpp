#include "foundation/FileDescriptor.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

TFileDescriptor& TFileDescriptor::operator=(TFileDescriptor&& other) noexcept {
    if (this != &other) {
        Close();
        fd = other.Release();
    }
    return *this;
}

int TFileDescriptor::Release() {
    const int released = fd;
    fd = -1;
    return released;
}

void TFileDescriptor::Close() {
    if (fd >= 0) ::close(fd);
    fd = -1;
}

// Opening never blocks (a pipe or a device in a file's place), only a plain
// file is read, and never more than limit bytes: a file that grows while it is
// read, or a special file that claims to be plain, cannot exhaust memory.
bool ReadWholeFile(const char* path, std::string& out, std::size_t limit) {
    TFileDescriptor fd(::open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!fd.IsOpen()) return false;
    struct stat st {};
    if (fstat(fd.Get(), &st) != 0) return false;
    if (!S_ISREG(st.st_mode)) {
        errno = S_ISDIR(st.st_mode) ? EISDIR : EINVAL;
        return false;
    }
    if (static_cast<std::uint64_t>(st.st_size) > limit) {
        errno = EFBIG;
        return false;
    }
    out.clear();
    out.resize(st.st_size > 0 ? static_cast<std::size_t>(st.st_size) + 1 : 4096);
    std::size_t used = 0;
    for (;;) {
        if (used == out.size()) {
            if (out.size() > limit) {
                errno = EFBIG;
                return false;
            }
            out.resize(std::min(out.size() * 2, limit + 1));
        }
        const ssize_t n = ::read(fd.Get(), out.data() + used, out.size() - used);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return false;
        if (n == 0) break;
        used += static_cast<std::size_t>(n);
    }
    out.resize(used);
    return true;
}

bool WriteAll(int fd, std::string_view data) {
    while (!data.empty()) {
        const ssize_t n = ::write(fd, data.data(), data.size());
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return false;
        data.remove_prefix(static_cast<std::size_t>(n));
    }
    return true;
}
