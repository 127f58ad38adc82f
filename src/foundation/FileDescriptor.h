#pragma once
// An owned POSIX file descriptor, and the whole-file reads and writes built on it.

#include <cstddef>
#include <string>
#include <string_view>

class TFileDescriptor {
public:
    TFileDescriptor() = default;
    explicit TFileDescriptor(int fd) : fd(fd) {}
    ~TFileDescriptor() { Close(); }
    TFileDescriptor(TFileDescriptor&& other) noexcept : fd(other.Release()) {}
    TFileDescriptor& operator=(TFileDescriptor&& other) noexcept;
    TFileDescriptor(const TFileDescriptor&) = delete;
    TFileDescriptor& operator=(const TFileDescriptor&) = delete;

    int Get() const { return fd; }
    bool IsOpen() const { return fd >= 0; }
    int Release();
    void Close();

private:
    int fd = -1;
};

// The most a whole-file read takes in: far above any list, rule or setting file.
constexpr std::size_t maxWholeFileBytes = std::size_t(64) << 20;

// The one way a whole file is read: without blocking, a plain file only
// (EISDIR, EINVAL otherwise), at most limit bytes (EFBIG). Replaces out's
// content. False with errno set on failure.
bool ReadWholeFile(const char* path, std::string& out, std::size_t limit = maxWholeFileBytes);
// Writes all of data, retrying short writes. False with errno set on failure.
bool WriteAll(int fd, std::string_view data);
