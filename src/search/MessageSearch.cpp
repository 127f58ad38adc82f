#include "search/MessageSearch.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "foundation/FileDescriptor.h"
#include "search/LineBreaks.h"

namespace {
constexpr std::size_t none = std::string_view::npos;
} // namespace

TMessageSearch::TMessageSearch(const TSearchMatcher& matcher, std::size_t block)
    : matcher(matcher), block(std::max<std::size_t>(block, 1)),
      capacity(this->block + matcher.Size() + 64),
      buffer(std::make_unique_for_overwrite<char[]>(capacity)) {}

bool TMessageSearch::SearchFile(const char* path, std::vector<TLineHit>& hits) {
    // O_NONBLOCK: a pipe or device under a message's name must not hold the search.
    const TFileDescriptor file(::open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    return SearchOpenFile(file.Get(), hits);
}

bool TMessageSearch::SearchOpenFile(int fd, std::vector<TLineHit>& hits) {
    struct stat st {};
    if (fd < 0 || ::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) return false;
    if (!matcher.CanMatch()) return true;
    const std::size_t before = hits.size();
    auto read = [&](char* into, std::size_t size) -> std::ptrdiff_t {
        for (;;) {
            const ssize_t got = ::read(fd, into, size);
            if (got >= 0 || errno != EINTR) return got;
        }
    };
    // A file that fails half-way gives no hits, as a failed whole read would.
    if (Run(read, hits)) return true;
    hits.resize(before);
    return false;
}

void TMessageSearch::SearchText(std::string_view text, std::vector<TLineHit>& hits) {
    if (!matcher.CanMatch()) return;
    std::size_t offset = 0;
    auto read = [&](char* into, std::size_t size) -> std::ptrdiff_t {
        const std::size_t count = std::min({size, block, text.size() - offset});
        std::memcpy(into, text.data() + offset, count);
        offset += count;
        return static_cast<std::ptrdiff_t>(count);
    };
    Run(read, hits);
}

// The main loop. pos is where the next match may start; after a hit the rest
// of its line is skipped, so each line gives at most its first match.
template <typename Read> bool TMessageSearch::Run(Read&& read, std::vector<TLineHit>& hits) {
    base = avail = counted = lineStart = 0;
    lineIndex = 0;
    atEnd = failed = false;
    const std::size_t n = matcher.Size();
    std::size_t pos = 0;
    bool skipping = false;
    for (;;) {
        const std::size_t end = base + avail;
        if (skipping) {
            const std::size_t rel = linebreaks::FindBreak(At(pos), end - pos);
            skipping = rel == end - pos;
            pos += rel;
        }
        // A start needs the text and, until the end is known, lookAhead bytes after it.
        const std::size_t reserve = n + (atEnd ? 0 : TSearchMatcher::lookAhead);
        const std::size_t limit = end >= reserve ? end - reserve + 1 : 0;
        if (!skipping && pos < limit) {
            const std::size_t at = matcher.Find(At(base), At(end), pos - base, limit - base);
            if (at != none) {
                AddHit(base + at, hits);
                pos = base + at + n;
                skipping = true;
                continue;
            }
            pos = limit;
        }
        if (atEnd) break;
        Refill(read, pos);
    }
    return !failed;
}

// Drops what lies well behind pos (counting its line ends first) and reads
// the next block behind what is left.
bool TMessageSearch::Refill(auto&& read, std::size_t pos) {
    std::size_t keep = std::max(
        base, pos > TSearchMatcher::lookBehind ? pos - TSearchMatcher::lookBehind : std::size_t{0});
    if (keep > counted) {
        // A CR and its LF are counted together.
        if (keep < base + avail && *At(keep - 1) == '\r' && *At(keep) == '\n') --keep;
        CountUpTo(keep);
    }
    keep = std::min(keep, counted);
    const std::size_t drop = keep - base;
    std::memmove(buffer.get(), buffer.get() + drop, avail - drop);
    avail -= drop;
    base = keep;
    const std::ptrdiff_t got = read(buffer.get() + avail, capacity - avail);
    if (got <= 0) {
        failed = got < 0;
        atEnd = true;
        return false;
    }
    // The text ends at its first NUL byte.
    char* fresh = buffer.get() + avail;
    if (const void* nul = std::memchr(fresh, '\0', static_cast<std::size_t>(got))) {
        avail += static_cast<std::size_t>(static_cast<const char*>(nul) - fresh);
        atEnd = true;
        return false;
    }
    avail += static_cast<std::size_t>(got);
    return true;
}

void TMessageSearch::CountUpTo(std::size_t absolute) {
    if (absolute <= counted) return;
    const std::size_t n = absolute - counted;
    lineIndex += linebreaks::CountBreaks(At(counted), n);
    const std::size_t last = linebreaks::FindLastBreak(At(counted), n);
    if (last != n) lineStart = counted + last + 1;
    counted = absolute;
}

void TMessageSearch::AddHit(std::size_t at, std::vector<TLineHit>& hits) {
    const std::size_t n = at - counted;
    const std::size_t last = linebreaks::FindLastBreak(At(counted), n);
    if (last != n) {
        const std::size_t start = counted + last + 1;
        lineIndex += linebreaks::CountBreaks(At(counted), start - counted);
        counted = lineStart = start;
    }
    hits.push_back({lineIndex, static_cast<std::int64_t>(at - lineStart) + 1});
}
