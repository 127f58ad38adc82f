#include "foundation/ReadAhead.h"

#include <fcntl.h>
#include <unistd.h>

namespace {

int OpenPlain(int dirFd, const char* name) {
    return ::openat(dirFd, name, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
}

} // namespace

TReadAhead::TReadAhead(int dirFd, const std::vector<std::string>& names, TOptions options)
    : dirFd(dirFd), names(names), options(options), slots(options.depth > 0 ? options.depth : 1) {
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
            std::unique_lock lock(mutex);
            changed.wait(lock, [&] { return stopping || !slot.ready; });
            if (stopping) return;
        }
        const int fd = options.open(dirFd, names[k].c_str());
        if (fd >= 0 && options.hint) ::posix_fadvise(fd, 0, 0, POSIX_FADV_WILLNEED);
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
