#include "foundation/ReadAhead.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

// Asks the kernel to read a file whose first byte is not in memory; false
// when it was found there. The probe costs less than the hint on a file that
// is in memory already, and only a plain file is probed: a read takes bytes
// out of a pipe, and a hint on a device would read the device.
bool Hint(int fd) {
    struct stat st {};
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode) || st.st_size == 0) return false;
    char byte;
    iovec into{&byte, 1};
    if (::preadv2(fd, &into, 1, 0, RWF_NOWAIT) >= 0 || errno != EAGAIN) return false;
    ::posix_fadvise(fd, 0, 0, POSIX_FADV_WILLNEED);
    return true;
}

} // namespace

TReadAhead::TReadAhead(int dirFd, const std::vector<std::string>& names, TOptions options)
    : dirFd(dirFd), names(names), options(options), slots(options.depth > 0 ? options.depth : 1),
      free(slots.size()), wakeAt(std::max<std::size_t>(1, slots.size() / 4)) {
    opener = std::thread([this] { OpenAll(); });
}

TReadAhead::~TReadAhead() {
    Stop();
}

int TReadAhead::Open(int dirFd, const char* name) {
    return ::openat(dirFd, name, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
}

int TReadAhead::OpenAt(std::size_t index) const {
    return Open(dirFd, names[index].c_str());
}

std::size_t TReadAhead::ClaimNext(std::unique_lock<std::mutex>& lock) {
    for (;;) {
        if (stopping || nextOpen >= names.size()) return none;
        const TSlot& slot = slots[nextOpen % slots.size()];
        if (!slot.ready) break;
        // Woken once a quarter of the slots is free, not at every take.
        openerWaiting = true;
        changed.wait(lock, [&] { return stopping || (!slot.ready && free >= wakeAt); });
        openerWaiting = false;
    }
    --free;
    opening = nextOpen++;
    return opening;
}

void TReadAhead::OpenAll() {
    for (;;) {
        std::size_t k = none;
        {
            std::unique_lock lock(mutex);
            k = ClaimNext(lock);
        }
        if (k == none) return;
        const int fd = OpenAt(k);
        // In a run of files found in memory only a sample is probed, to
        // notice when the files turn cold.
        if (fd >= 0 && options.hint && (warmRun < warmRunLimit || k % sampleEvery == 0))
            warmRun = Hint(fd) ? 0 : warmRun + 1;
        bool awaited = false;
        {
            std::lock_guard lock(mutex);
            slots[k % slots.size()] = {k, fd, true};
            opening = none;
            awaited = openingAwaited;
            openingAwaited = false;
        }
        if (awaited) changed.notify_all();
    }
}

// A file that waits open is taken as it is; one the opener is opening is
// waited for; any other is opened here, and the opener goes on behind it.
TFileDescriptor TReadAhead::Take(std::size_t index) {
    TSlot& slot = slots[index % slots.size()];
    std::unique_lock lock(mutex);
    if (index == opening) {
        openingAwaited = true;
        changed.wait(lock, [&] { return stopping || index != opening; });
    }
    if (stopping) return {};
    if (!slot.ready || slot.index != index) {
        nextOpen = std::max(nextOpen, index + 1);
        lock.unlock();
        return TFileDescriptor(OpenAt(index));
    }
    const int fd = slot.fd;
    slot.ready = false;
    ++free;
    const bool wake = openerWaiting && free >= wakeAt;
    lock.unlock();
    if (wake) changed.notify_all();
    return TFileDescriptor(fd);
}

void TReadAhead::Stop() {
    {
        std::lock_guard lock(mutex);
        stopping = true;
    }
    changed.notify_all();
    if (opener.joinable()) opener.join();
    for (TSlot& slot : slots) {
        if (slot.ready && slot.fd >= 0) ::close(slot.fd);
        slot.ready = false;
    }
}
