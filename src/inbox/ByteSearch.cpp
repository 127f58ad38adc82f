#include "inbox/ByteSearch.h"

#include <cstdint>
#include <cstring>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace {

constexpr std::size_t none = std::string_view::npos;

std::size_t FindTail(std::string_view text, std::string_view needle, std::size_t from) {
    return text.find(needle, from);
}

#if defined(__x86_64__)
// Compares the needle where its first and last bytes both stand (hits is one
// bit per candidate start at i); the position of the first full match, or none.
inline std::size_t CheckCandidates(std::uint32_t hits, const char* base, std::size_t i,
                                   std::string_view needle) {
    const std::size_t m = needle.size();
    while (hits) {
        const std::size_t at = i + static_cast<std::size_t>(__builtin_ctz(hits));
        hits &= hits - 1;
        if (m <= 2 || std::memcmp(base + at + 1, needle.data() + 1, m - 2) == 0) return at;
    }
    return none;
}

__attribute__((target("avx2"))) std::size_t FindAvx2(std::string_view text, std::string_view needle,
                                                     std::size_t from) {
    const std::size_t m = needle.size();
    const char* base = text.data();
    const __m256i first = _mm256_set1_epi8(needle.front());
    const __m256i last = _mm256_set1_epi8(needle.back());
    std::size_t i = from;
    for (; i + m - 1 + 32 <= text.size(); i += 32) {
        const __m256i a = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(base + i));
        const __m256i b = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(base + i + m - 1));
        const auto hits = static_cast<std::uint32_t>(_mm256_movemask_epi8(
            _mm256_and_si256(_mm256_cmpeq_epi8(a, first), _mm256_cmpeq_epi8(b, last))));
        if (hits) {
            if (const std::size_t at = CheckCandidates(hits, base, i, needle); at != none)
                return at;
        }
    }
    return FindTail(text, needle, i);
}

std::size_t FindSse2(std::string_view text, std::string_view needle, std::size_t from) {
    const std::size_t m = needle.size();
    const char* base = text.data();
    const __m128i first = _mm_set1_epi8(needle.front());
    const __m128i last = _mm_set1_epi8(needle.back());
    std::size_t i = from;
    for (; i + m - 1 + 16 <= text.size(); i += 16) {
        const __m128i a = _mm_loadu_si128(reinterpret_cast<const __m128i*>(base + i));
        const __m128i b = _mm_loadu_si128(reinterpret_cast<const __m128i*>(base + i + m - 1));
        const auto hits = static_cast<std::uint32_t>(
            _mm_movemask_epi8(_mm_and_si128(_mm_cmpeq_epi8(a, first), _mm_cmpeq_epi8(b, last))));
        if (hits) {
            if (const std::size_t at = CheckCandidates(hits, base, i, needle); at != none)
                return at;
        }
    }
    return FindTail(text, needle, i);
}
#endif

using TFind = std::size_t (*)(std::string_view, std::string_view, std::size_t);

TFind ChooseFind() {
#if defined(__x86_64__)
    return __builtin_cpu_supports("avx2") ? FindAvx2 : FindSse2;
#else
    return FindTail;
#endif
}

const TFind findBytes = ChooseFind();

} // namespace

std::size_t FindBytes(std::string_view text, std::string_view needle, std::size_t from) {
    if (needle.empty() || from >= text.size() || needle.size() > text.size() - from) return none;
    return findBytes(text, needle, from);
}
