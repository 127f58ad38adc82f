#include "search/LineBreaks.h"

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace linebreaks {
namespace {

bool IsBreak(char c) {
    return c == '\r' || c == '\n';
}

std::int64_t CountTail(const char* p, std::size_t from, std::size_t n) {
    std::int64_t count = 0;
    for (std::size_t i = from; i < n; ++i) {
        if (p[i] == '\n')
            ++count;
        else if (p[i] == '\r' && (i + 1 >= n || p[i + 1] != '\n'))
            ++count;
    }
    return count;
}

#if defined(__x86_64__)
__attribute__((target("avx2"))) std::uint32_t BreakMask32(const char* p) {
    const __m256i v = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
    const __m256i cr = _mm256_cmpeq_epi8(v, _mm256_set1_epi8('\r'));
    const __m256i lf = _mm256_cmpeq_epi8(v, _mm256_set1_epi8('\n'));
    return static_cast<std::uint32_t>(_mm256_movemask_epi8(_mm256_or_si256(cr, lf)));
}

__attribute__((target("avx2"))) std::size_t FindBreakAvx2(const char* p, std::size_t n) {
    std::size_t i = 0;
    for (; i + 32 <= n; i += 32)
        if (const std::uint32_t m = BreakMask32(p + i)) return i + __builtin_ctz(m);
    for (; i < n; ++i)
        if (IsBreak(p[i])) return i;
    return n;
}

__attribute__((target("avx2"))) std::size_t FindLastBreakAvx2(const char* p, std::size_t n) {
    std::size_t i = n;
    for (; i >= 32; i -= 32)
        if (const std::uint32_t m = BreakMask32(p + i - 32)) return i - 32 + 31 - __builtin_clz(m);
    while (i > 0)
        if (IsBreak(p[--i])) return i;
    return n;
}

// Line ends are LF bytes plus CR bytes that no LF follows.
__attribute__((target("avx2,popcnt"))) std::int64_t CountBreaksAvx2(const char* p, std::size_t n) {
    std::int64_t count = 0;
    std::size_t i = 0;
    const __m256i crs = _mm256_set1_epi8('\r');
    const __m256i lfs = _mm256_set1_epi8('\n');
    for (; i + 33 <= n; i += 32) {
        const __m256i v = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p + i));
        const __m256i next = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p + i + 1));
        const auto lf = static_cast<std::uint32_t>(_mm256_movemask_epi8(_mm256_cmpeq_epi8(v, lfs)));
        const auto cr = static_cast<std::uint32_t>(_mm256_movemask_epi8(_mm256_cmpeq_epi8(v, crs)));
        const auto lfNext =
            static_cast<std::uint32_t>(_mm256_movemask_epi8(_mm256_cmpeq_epi8(next, lfs)));
        count += __builtin_popcount(lf) + __builtin_popcount(cr & ~lfNext);
    }
    return count + CountTail(p, i, n);
}

std::uint32_t BreakMask16(const char* p) {
    const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
    const __m128i cr = _mm_cmpeq_epi8(v, _mm_set1_epi8('\r'));
    const __m128i lf = _mm_cmpeq_epi8(v, _mm_set1_epi8('\n'));
    return static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_or_si128(cr, lf)));
}

std::size_t FindBreakSse2(const char* p, std::size_t n) {
    std::size_t i = 0;
    for (; i + 16 <= n; i += 16)
        if (const std::uint32_t m = BreakMask16(p + i)) return i + __builtin_ctz(m);
    for (; i < n; ++i)
        if (IsBreak(p[i])) return i;
    return n;
}

std::size_t FindLastBreakSse2(const char* p, std::size_t n) {
    std::size_t i = n;
    for (; i >= 16; i -= 16)
        if (const std::uint32_t m = BreakMask16(p + i - 16)) return i - 16 + 31 - __builtin_clz(m);
    while (i > 0)
        if (IsBreak(p[--i])) return i;
    return n;
}

using TFind = std::size_t (*)(const char*, std::size_t);
using TCount = std::int64_t (*)(const char*, std::size_t);
const bool haveAvx2 = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("popcnt");
const TFind findBreak = haveAvx2 ? FindBreakAvx2 : FindBreakSse2;
const TFind findLastBreak = haveAvx2 ? FindLastBreakAvx2 : FindLastBreakSse2;
const TCount countBreaks =
    haveAvx2 ? CountBreaksAvx2 : [](const char* p, std::size_t n) { return CountTail(p, 0, n); };
#else
std::size_t FindBreakPlain(const char* p, std::size_t n) {
    for (std::size_t i = 0; i < n; ++i)
        if (IsBreak(p[i])) return i;
    return n;
}
std::size_t FindLastBreakPlain(const char* p, std::size_t n) {
    for (std::size_t i = n; i > 0;)
        if (IsBreak(p[--i])) return i;
    return n;
}
const auto findBreak = FindBreakPlain;
const auto findLastBreak = FindLastBreakPlain;
const auto countBreaks = [](const char* p, std::size_t n) { return CountTail(p, 0, n); };
#endif

} // namespace

std::size_t FindBreak(const char* p, std::size_t n) {
    return findBreak(p, n);
}

std::size_t FindLastBreak(const char* p, std::size_t n) {
    return findLastBreak(p, n);
}

std::int64_t CountBreaks(const char* p, std::size_t n) {
    return countBreaks(p, n);
}

} // namespace linebreaks
