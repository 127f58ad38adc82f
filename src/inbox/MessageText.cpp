#include "inbox/MessageText.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include "foundation/AnsiString.h"
#include "foundation/FileDescriptor.h"
#include "inbox/ByteSearch.h"
#include "inbox/HeaderReader.h"

namespace {

constexpr std::size_t initialCapacity = 256 * 1024;
constexpr std::size_t hugePage = 2 * 1024 * 1024;
// A name matches when it begins at most this many bytes behind its line's start.
constexpr std::size_t lastColumn = 18;

bool IsBreak(char c) {
    return c == '\r' || c == '\n';
}

} // namespace

// A buffer of a few megabytes is asked for in whole huge pages: faulting it
// in page by page cost more than a tenth of a scan's time.
void TMessageText::Reserve(std::size_t size) {
    if (capacity >= size) return;
    if (size >= hugePage) size = (size + hugePage - 1) / hugePage * hugePage;
    TBuffer grown(static_cast<char*>(size >= hugePage ? std::aligned_alloc(hugePage, size)
                                                      : std::malloc(size)));
    if (!grown) throw std::bad_alloc();
    if (size >= hugePage) ::madvise(grown.get(), size, MADV_HUGEPAGE);
    if (length > 0) std::memcpy(grown.get(), buffer.get(), length);
    buffer = std::move(grown);
    capacity = size;
}

long TMessageText::ReadChunk(int fd, std::size_t room) {
    for (;;) {
        const ssize_t got = ::read(fd, buffer.get() + read, room);
        if (got >= 0 || errno != EINTR) return got;
    }
}

// Reads until the end, a NUL or the limit. The buffer soon has room for any
// file of the mailbox, and a read that fills it only makes it larger. A read
// that stops short of its room exactly at sizeHint has met the end of a plain
// file, so the read that would return nothing is not made.
TMessageText::TLoad TMessageText::LoadFrom(int fd, std::size_t limit, std::size_t sizeHint) {
    length = read = 0;
    fileSize = 0;
    atEnd = false;
    // One byte more than the size, so that the end shows without a growth.
    // A file larger than the first buffer takes it to the limit at once: each
    // new buffer is faulted in anew, and a mailbox with one such file has more.
    if (sizeHint + 1 > capacity)
        Reserve(std::min(sizeHint + 1 > initialCapacity ? limit : initialCapacity, limit));
    for (;;) {
        if (read == capacity) {
            if (capacity >= limit) return TLoad::TooLarge;
            length = read;
            Reserve(std::min(capacity * 2, limit));
        }
        const long got = ReadChunk(fd, capacity - read);
        if (got < 0) {
            length = read = 0;
            return TLoad::Failed;
        }
        if (got == 0) break;
        const char* fresh = buffer.get() + read;
        const bool shortOfRoom = static_cast<std::size_t>(got) < capacity - read;
        read += static_cast<std::size_t>(got);
        // Each byte is looked at once, while it is fresh in the cache.
        if (const void* nul = std::memchr(fresh, '\0', static_cast<std::size_t>(got))) {
            length = static_cast<std::size_t>(static_cast<const char*>(nul) - buffer.get());
            return TLoad::Whole;
        }
        if (shortOfRoom && sizeHint > 0 && read == sizeHint) break;
    }
    length = read;
    atEnd = true;
    return TLoad::Whole;
}

std::optional<std::string_view> TMessageText::ReadMore(int fd) {
    length = read = 0;
    const long got = ReadChunk(fd, capacity);
    if (got < 0) return std::nullopt;
    read = static_cast<std::size_t>(got);
    return Raw();
}

bool TMessageText::Load(const char* path) {
    TFileDescriptor file(::open(path, O_RDONLY | O_CLOEXEC));
    length = 0;
    fileSize = 0;
    if (!file.IsOpen() || LoadFrom(file.Get(), SIZE_MAX) != TLoad::Whole) return false;
    // Asked of the open file rather than of its path: the same moment, one
    // path walk less. A file removed meanwhile has no link left and counts as gone.
    struct stat st {};
    fileSize = ::fstat(file.Get(), &st) == 0 && st.st_nlink > 0
                   ? static_cast<std::uint32_t>(st.st_size)
                   : 0;
    return true;
}

void TMessageText::SetText(std::string_view text) {
    length = read = 0;
    Reserve(std::max(text.size(), initialCapacity));
    std::memcpy(buffer.get(), text.data(), text.size());
    CutAtNul(text.size());
}

void TMessageText::CutAtNul(std::size_t end) {
    const void* nul = std::memchr(buffer.get(), '\0', end);
    length = nul ? static_cast<std::size_t>(static_cast<const char*>(nul) - buffer.get()) : end;
}

std::size_t TMessageText::NextLine(std::size_t lineStart) const {
    const std::string_view text = Text();
    std::size_t at = lineStart;
    while (at < text.size() && !IsBreak(text[at]))
        ++at;
    if (at < text.size() && text[at] == '\r') ++at;
    if (at < text.size() && text[at] == '\n') ++at;
    return at;
}

std::optional<TMessageText::TMatch> TMessageText::Find(std::string_view name,
                                                       std::size_t from) const {
    const std::string_view text = Text();
    for (std::size_t at = from;; ++at) {
        at = FindBytes(text, name, at);
        if (at == std::string_view::npos) return std::nullopt;
        // Look back for the line's start no further than one byte past the
        // last column, and never before from, which is a line start itself.
        const std::size_t lowest = at - from > lastColumn + 1 ? at - lastColumn - 1 : from;
        std::size_t lineStart = at;
        while (lineStart > lowest && !IsBreak(text[lineStart - 1]))
            --lineStart;
        if (at - lineStart > lastColumn) continue;
        std::size_t lineEnd = at + name.size();
        while (lineEnd < text.size() && !IsBreak(text[lineEnd]))
            ++lineEnd;
        const std::string_view line = text.substr(lineStart, lineEnd - lineStart);
        return TMatch{header::ValueOf(line, name), NextLine(lineStart)};
    }
}
