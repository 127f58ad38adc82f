#pragma once
// Opens the files of a list in list order on a thread of its own, a bounded
// number ahead of those taken, and can ask the kernel to start reading each
// one that is not in memory as it is opened: a cold file is then on its way
// while the files before it are read. While the files keep being found in
// memory only a sample is probed, so a warm list costs about what it would
// without the hints. A file the opener has not come to yet when it is taken
// is opened by the taker itself, so takers that outrun the opener never wait
// for it. At most depth files wait open, besides those the takers hold.
//
//   TReadAhead ahead(dirFd, names, {.depth = 64, .hint = true});
//   for (i ...) { TFileDescriptor fd = ahead.Take(i); ... }
//
// Take may be called from several threads, each index once, in about list
// order.

#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "foundation/FileDescriptor.h"

class TReadAhead {
public:
    struct TOptions {
        std::size_t depth = 64;
        bool hint = true; // posix_fadvise(WILLNEED) on each file opened that is not in memory
    };
    // How a name is opened: for reading, following links, and non-blocking, so
    // that a pipe put in a file's place cannot hold the reader.
    static int Open(int dirFd, const char* name);

    // names must outlive this object; dirFd is a folder, or AT_FDCWD for full paths.
    TReadAhead(int dirFd, const std::vector<std::string>& names, TOptions options);
    ~TReadAhead();
    TReadAhead(const TReadAhead&) = delete;
    TReadAhead& operator=(const TReadAhead&) = delete;

    // The open file of names[index], waiting for it; not open (errno lost)
    // when it could not be opened or the read-ahead was stopped.
    TFileDescriptor Take(std::size_t index);
    // Ends the opening thread and closes what was not taken. Idempotent.
    void Stop();

private:
    struct TSlot {
        std::size_t index = static_cast<std::size_t>(-1);
        int fd = -1;
        bool ready = false;
    };
    void OpenAll();
    // The next index for the opener, waiting for its slot; none at the end.
    std::size_t ClaimNext(std::unique_lock<std::mutex>& lock);
    int OpenAt(std::size_t index) const;
    static constexpr std::size_t none = static_cast<std::size_t>(-1);
    static constexpr std::size_t warmRunLimit = 16, sampleEvery = 8;

    int dirFd;
    const std::vector<std::string>& names;
    TOptions options;
    std::vector<TSlot> slots;
    std::mutex mutex;
    std::condition_variable changed;
    std::size_t free;   // slots neither opened nor waiting to be taken
    std::size_t wakeAt; // free slots that wake the opener
    // Indexes below nextOpen were opened by the opener, are being opened by
    // it (opening), or were passed to their takers.
    std::size_t nextOpen = 0;
    std::size_t opening = none;
    bool openingAwaited = false;
    bool openerWaiting = false;
    bool stopping = false;
    std::size_t warmRun = 0; // files probed in a row found in memory; the opener's own
    std::thread opener;
};
