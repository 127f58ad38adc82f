#include "inbox/MessageLines.h"

#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "foundation/FileDescriptor.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace {

// The first CR, LF or NUL at or after p, or end. This is the one pass over
// every byte of a message, so it looks at 16 bytes at a time where it can.
const char* NextLineBreak(const char* p, const char* end) {
#if defined(__SSE2__)
    const __m128i cr = _mm_set1_epi8('\r'), lf = _mm_set1_epi8('\n'), nul = _mm_setzero_si128();
    while (end - p >= 16) {
        const __m128i chunk = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
        const __m128i hits =
            _mm_or_si128(_mm_or_si128(_mm_cmpeq_epi8(chunk, cr), _mm_cmpeq_epi8(chunk, lf)),
                         _mm_cmpeq_epi8(chunk, nul));
        if (const int mask = _mm_movemask_epi8(hits)) return p + __builtin_ctz(mask);
        p += 16;
    }
#endif
    while (p < end && *p != '\r' && *p != '\n' && *p != '\0')
        ++p;
    return p;
}

} // namespace

bool TMessageLines::Load(const char* path) {
    lines.clear();
    TFileDescriptor file(::open(path, O_RDONLY | O_CLOEXEC));
    if (!file.IsOpen()) return false;
    struct stat st {};
    if (::fstat(file.Get(), &st) != 0 || !S_ISREG(st.st_mode)) return false;
    // One byte more than the size, so that a file that grew since is noticed.
    std::size_t wanted = static_cast<std::size_t>(st.st_size) + 1;
    std::size_t length = 0;
    for (;;) {
        if (buffer.size() < wanted) buffer.resize(wanted);
        const ssize_t got = ::read(file.Get(), buffer.data() + length, buffer.size() - length);
        if (got < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        if (got == 0) break;
        length += static_cast<std::size_t>(got);
        if (length == buffer.size()) wanted = buffer.size() * 2;
    }
    IndexLines(length);
    return true;
}

void TMessageLines::SetText(std::string_view text) {
    if (buffer.size() < text.size()) buffer.resize(text.size());
    std::memcpy(buffer.data(), text.data(), text.size());
    lines.clear();
    IndexLines(text.size());
}

void TMessageLines::IndexLines(std::size_t length) {
    const char* p = buffer.data();
    const char* end = p + length;
    while (p < end && *p != '\0') {
        const char* lineEnd = NextLineBreak(p, end);
        lines.emplace_back(p, static_cast<std::size_t>(lineEnd - p));
        p = lineEnd;
        if (p < end && *p == '\r') ++p;
        if (p < end && *p == '\n') ++p;
    }
}
