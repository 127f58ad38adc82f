#include "foundation/ReadAhead.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

int OpenPlain(int dirFd, const char* name) {
    return ::openat(dirFd, name, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
}

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
    if (!this->options.open) this->options.open = OpenPlain;
    opener = std::thread([this] { OpenAll(); });
}

TReadAhead::~TReadAhead() {
    Stop();
}

void TReadAhead::OpenAll() {
    for (std::size_t k = 0; k < names.size(); ++k) {
        TSlot& slot = slots[k % slots.size()];
        {
            // Woken once a quarter of the slots is free, not at every take.
            std::unique_lock lock(mutex);
            if (slot.ready) {
                openerWaiting = true;
                changed.wait(lock, [&] { return stopping || (!slot.ready && free >= wakeAt); });
                openerWaiting = false;
            }
            if (stopping) return;
            --free;
        }
        const int fd = options.open(dirFd, names[k].c_str());
        // In a run of files found in memory only a sample is probed, to
        // notice when the files turn cold.
        if (fd >= 0 && options.hint && (warmRun < warmRunLimit || k % sampleEvery == 0))
            warmRun = Hint(fd) ? 0 : warmRun + 1;
        {
            std::lock_guard lock(mutex);
            slot = {k, fd, true};
        }
        changed.notify_all();
    }
}

TFileDescriptor TReadAhead::Take(std::size_t index) {
    TSlot& slot = slots[index % slots.size()];
    int fd = -1;
    {
        std::unique_lock lock(mutex);
        changed.wait(lock, [&] { return stopping || (slot.ready && slot.index == index); });
        if (stopping) return {};
        fd = slot.fd;
        slot.ready = false;
        ++free;
        if (!openerWaiting || free < wakeAt) return TFileDescriptor(fd);
    }
    changed.notify_all();
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
