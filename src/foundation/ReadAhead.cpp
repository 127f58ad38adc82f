#include "foundation/ReadAhead.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

constexpr std::size_t none = static_cast<std::size_t>(-1);

int OpenPlain(int dirFd, const char* name) {
    return ::openat(dirFd, name, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
}

// A file whose first byte is not in memory is read ahead whole. The probe
// costs less than the hint on a file that is in memory already, and only a
// plain file is probed: a read takes bytes out of a pipe, and a hint on a
// device would read the device.
// False when the file was found in memory.
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
    : dirFd(dirFd), names(names), options(options),
      slots(std::min(std::max<std::size_t>(options.depth, 1),
                     std::max<std::size_t>(names.size(), 1))) {
    if (!this->options.open) this->options.open = OpenPlain;
    for (std::size_t k = 0; k < slots.size() && k < names.size(); ++k)
        slots[k] = {k, OpenAhead(k)};
}

TReadAhead::~TReadAhead() {
    Stop();
}

int TReadAhead::OpenAhead(std::size_t index) {
    const int fd = options.open(dirFd, names[index].c_str());
    if (fd >= 0 && options.hint) {
        if (Hint(fd))
            warmRun.store(0, std::memory_order_relaxed);
        else
            warmRun.fetch_add(1, std::memory_order_relaxed);
    }
    return fd;
}

// In a run of files found in memory, only one in sampleEvery is opened
// ahead, to notice when the files turn cold; the others are opened when taken.
bool TReadAhead::WorthOpeningAhead(std::size_t index) const {
    return !options.hint || warmRun.load(std::memory_order_relaxed) < warmRunLimit ||
           index % sampleEvery == 0;
}

// A slot that still holds an older file gives it up: that file was taken out
// of order and opened then, or will be.
void TReadAhead::Park(std::size_t index, int fd) {
    if (fd < 0) return;
    std::unique_lock lock(mutex);
    TSlot& slot = slots[index % slots.size()];
    if (stopping || (slot.index != none && slot.index > index)) {
        lock.unlock();
        ::close(fd);
        return;
    }
    const int older = slot.index != none ? slot.fd : -1;
    slot = {index, fd};
    lock.unlock();
    if (older >= 0) ::close(older);
}

TFileDescriptor TReadAhead::Take(std::size_t index) {
    if (index >= names.size()) return {};
    int fd = -1;
    {
        std::lock_guard lock(mutex);
        if (stopping) return {};
        TSlot& slot = slots[index % slots.size()];
        if (slot.index == index) {
            fd = slot.fd;
            slot = {};
        }
    }
    if (fd < 0) fd = options.open(dirFd, names[index].c_str());
    if (const std::size_t next = index + slots.size();
        next < names.size() && WorthOpeningAhead(next))
        Park(next, OpenAhead(next));
    return TFileDescriptor(fd);
}

void TReadAhead::Stop() {
    std::vector<TSlot> parked;
    {
        std::lock_guard lock(mutex);
        stopping = true;
        parked.swap(slots);
        slots.resize(parked.size());
    }
    for (const TSlot& slot : parked)
        if (slot.index != none && slot.fd >= 0) ::close(slot.fd);
}
