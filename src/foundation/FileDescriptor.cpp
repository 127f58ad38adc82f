#include "foundation/FileDescriptor.h"

#include <cerrno>
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

bool ReadWholeFile(const char* path, std::string& out) {
    TFileDescriptor fd(::open(path, O_RDONLY | O_CLOEXEC));
    if (!fd.IsOpen()) return false;
    struct stat st {};
    if (fstat(fd.Get(), &st) != 0) return false;
    if (S_ISDIR(st.st_mode)) {
        errno = EISDIR;
        return false;
    }
    out.clear();
    std::size_t capacity = st.st_size > 0 ? static_cast<std::size_t>(st.st_size) + 1 : 4096;
    out.resize(capacity);
    std::size_t used = 0;
    for (;;) {
        if (used == out.size()) out.resize(out.size() * 2);
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
