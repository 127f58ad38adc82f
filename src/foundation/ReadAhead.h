#pragma once
// Keeps the files of a list open and on their way from the disk a bounded
// number ahead of those taken: taking file i opens file i + depth and, when
// that file is not in memory, asks the kernel to start reading it. A cold file
// is then read while the files before it are parsed. While the files keep
// being found in memory, only a sample is opened ahead, so a warm list costs
// about what it would without this class. The work is done by the threads
// that take, so nothing runs when nobody takes. At most depth files wait open.
//
//   TReadAhead ahead(dirFd, names, {.depth = 64, .hint = true});
//   for (i ...) { TFileDescriptor fd = ahead.Take(i); ... }
//
// Take may be called from several threads, each index once, in about
// increasing order; an index taken far out of order is opened when taken.

#include <atomic>
#include <cstddef>
#include <mutex>
#include <string>
#include <vector>

#include "foundation/FileDescriptor.h"

class TReadAhead {
public:
    struct TOptions {
        std::size_t depth = 64;
        bool hint = true; // posix_fadvise(WILLNEED) on each file opened ahead that is not in memory
        // How a name is opened; openat(dirFd, name, O_RDONLY|O_CLOEXEC|O_NONBLOCK) if null.
        int (*open)(int dirFd, const char* name) = nullptr;
    };

    // names must outlive this object; dirFd is a folder, or AT_FDCWD for full
    // paths. Opens the first depth files.
    TReadAhead(int dirFd, const std::vector<std::string>& names, TOptions options);
    ~TReadAhead();
    TReadAhead(const TReadAhead&) = delete;
    TReadAhead& operator=(const TReadAhead&) = delete;

    // The open file of names[index]; not open (errno lost) when it could not
    // be opened or the read-ahead was stopped.
    TFileDescriptor Take(std::size_t index);
    // Closes what was not taken; later takes give files that are not open. Idempotent.
    void Stop();

private:
    struct TSlot {
        std::size_t index = static_cast<std::size_t>(-1);
        int fd = -1;
    };
    static constexpr std::size_t warmRunLimit = 16, sampleEvery = 8;
    int OpenAhead(std::size_t index);
    bool WorthOpeningAhead(std::size_t index) const;
    void Park(std::size_t index, int fd);

    int dirFd;
    const std::vector<std::string>& names;
    TOptions options;
    std::vector<TSlot> slots; // file i waits in slots[i % depth]
    std::mutex mutex;
    bool stopping = false;
    std::atomic<std::size_t> warmRun{0}; // files opened ahead in a row found in memory
};
