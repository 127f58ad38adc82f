#include "search/HitRows.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "foundation/FileDescriptor.h"
#include "search/LineBreaks.h"

namespace {

constexpr std::size_t blockSize = 1 << 20;
constexpr std::size_t valueLength = 512;

// A key is ASCII, and only ASCII bytes fold to ASCII, so the matcher needs
// no bytes around a place to compare it.
bool HoldsFolded(std::string_view text, const TSearchMatcher& key) {
    if (text.size() < key.Size()) return false;
    return key.Find(text.data(), text.data() + text.size(), 0, text.size() - key.Size() + 1) !=
           std::string_view::npos;
}

std::ptrdiff_t ReadSome(int fd, char* into, std::size_t size) {
    for (;;) {
        const ssize_t got = ::read(fd, into, size);
        if (got >= 0 || errno != EINTR) return got;
    }
}

} // namespace

bool THitRows::Read(const char* path, const std::vector<std::int64_t>& wanted,
                    const std::function<bool()>& yield, TFileValues& values) {
    TFileDescriptor file(::open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    if (!file.IsOpen()) return false;
    struct stat st {};
    if (::fstat(file.Get(), &st) != 0 || !S_ISREG(st.st_mode)) return false;
    if (!buffer) buffer = std::make_unique_for_overwrite<char[]>(blockSize);
    keys.clear();
    for (const auto& [name, value] :
         {std::pair{"date:", &values.date}, {"from:", &values.from}, {"subject:", &values.subject}})
        keys.push_back({name, TSearchMatcher(name, false), value});
    looking = true;
    index = 0;
    const std::int64_t lastWanted = wanted.empty() ? -1 : wanted.back();
    auto isWanted = [&](std::int64_t i) {
        return std::binary_search(wanted.begin(), wanted.end(), i);
    };
    auto done = [&] {
        const bool keysDone = !looking || std::all_of(keys.begin(), keys.end(),
                                                      [](const TKey& k) { return k.found; });
        return keysDone && index > lastWanted;
    };
    bool lineOpen = false, pendingCR = false, textEnds = false;
    std::uint64_t blockStart = 0; // offset of the block in the file
    spans.clear();
    while (!textEnds) {
        std::ptrdiff_t got = ReadSome(file.Get(), buffer.get(), blockSize);
        if (got < 0) return false;
        if (got == 0) break;
        const char* data = buffer.get();
        const std::uint64_t offset = blockStart;
        blockStart += static_cast<std::uint64_t>(got);
        if (const void* nul = std::memchr(data, '\0', static_cast<std::size_t>(got))) {
            got = static_cast<const char*>(nul) - data;
            textEnds = true;
        }
        const auto size = static_cast<std::size_t>(got);
        std::size_t p = 0;
        if (pendingCR && size > 0 && data[0] == '\n') p = 1;
        pendingCR = false;
        while (p < size) {
            if (!lineOpen) {
                StartLine(isWanted(index), offset + p, yield);
                lineOpen = true;
            }
            const std::size_t q = p + linebreaks::FindBreak(data + p, size - p);
            Feed(std::string_view(data + p, q - p));
            if (q == size) break;
            EndLine();
            lineOpen = false;
            if (done()) return ReadSpans(file.Get(), values);
            p = q + 1;
            if (data[q] == '\r') {
                if (p < size && data[p] == '\n')
                    ++p;
                else if (p == size)
                    pendingCR = true;
            }
        }
    }
    if (lineOpen) EndLine();
    return ReadSpans(file.Get(), values);
}

// The wanted lines are read once their lengths are known, each into a text
// of exactly its size: a long line is held once, never grown by doubling.
bool THitRows::ReadSpans(int fd, TFileValues& values) {
    for (const auto& [lineIndex, span] : spans) {
        std::string text(span.length, '\0');
        std::size_t done = 0;
        while (done < text.size()) {
            const ssize_t got = ::pread(fd, text.data() + done, text.size() - done,
                                        static_cast<off_t>(span.start + done));
            if (got < 0 && errno == EINTR) continue;
            if (got < 0) return false;
            if (got == 0) break;
            done += static_cast<std::size_t>(got);
        }
        text.resize(done);
        values.lines[lineIndex] = std::move(text);
    }
    return true;
}

void THitRows::StartLine(bool wanted, std::uint64_t start, const std::function<bool()>& yield) {
    wantedLine = wanted;
    lineStart = start;
    lineLength = 0;
    colonSeen = false;
    afterColon.clear();
    tail.clear();
    inLine.assign(keys.size(), false);
    const bool open = std::any_of(keys.begin(), keys.end(), [](const TKey& k) { return !k.found; });
    if (looking && open && yield && !yield()) looking = false;
}

void THitRows::Feed(std::string_view piece) {
    lineLength += piece.size();
    if (!colonSeen) {
        const auto colon = piece.find(':');
        if (colon != std::string_view::npos) {
            colonSeen = true;
            afterColon.assign(piece.substr(colon + 1, valueLength));
        }
    } else if (afterColon.size() < valueLength) {
        afterColon.append(piece.substr(0, valueLength - afterColon.size()));
    }
    if (!looking) return;
    for (std::size_t k = 0; k < keys.size(); ++k)
        if (!keys[k].found && !inLine[k]) inLine[k] = LineHoldsKey(keys[k], piece);
    // The last bytes stay for a key that a block boundary splits.
    tail.append(piece.substr(piece.size() > 16 ? piece.size() - 16 : 0));
    if (tail.size() > 16) tail.erase(0, tail.size() - 16);
}

bool THitRows::LineHoldsKey(TKey& key, std::string_view piece) {
    if (HoldsFolded(piece, key.matcher)) return true;
    if (tail.empty()) return false;
    const std::string joined = tail + std::string(piece.substr(0, key.name.size() - 1));
    return HoldsFolded(joined, key.matcher);
}

void THitRows::EndLine() {
    for (std::size_t k = 0; k < keys.size(); ++k) {
        if (keys[k].found || !inLine[k]) continue;
        keys[k].found = true;
        *keys[k].value = AnsiString(afterColon).Trim();
    }
    if (wantedLine) spans[index] = {lineStart, lineLength};
    ++index;
}
