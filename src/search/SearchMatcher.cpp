#include "search/SearchMatcher.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include "foundation/CaseFold.h"

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace {

constexpr std::size_t none = std::string_view::npos;

bool IsAsciiLetter(unsigned char b) {
    return (b >= 'a' && b <= 'z') || (b >= 'A' && b <= 'Z');
}

unsigned char LowerAscii(unsigned char b) {
    return (b >= 'A' && b <= 'Z') ? static_cast<unsigned char>(b + 32) : b;
}

// A rough weight of how often a byte stands in saved mail: the anchors of a
// search are the two bytes of its text with the smallest weight.
int Weight(unsigned char b) {
    static constexpr std::string_view common = " etaoinsrhldcumfpgwybvkxjqz";
    if (b >= 0x80) return 40; // all bytes above 0x7F at once, when the text is folded
    if (b == '\r' || b == '\n') return 30;
    const unsigned char lower = LowerAscii(b);
    const auto at = common.find(static_cast<char>(lower));
    if (at != std::string_view::npos) return static_cast<int>(common.size() - at) * 3 + 10;
    if (b >= '0' && b <= '9') return 25;
    if (b == '=' || b == '-' || b == '.' || b == ':' || b == '/' || b == '+') return 20;
    return 5;
}

} // namespace

TSearchMatcher::TSearchMatcher(std::string_view text, bool caseSensitive)
    : needle(caseSensitive ? std::string(text) : casefold::Lower(text)),
      caseSensitive(caseSensitive) {
    canMatch = !needle.empty() && needle.find_first_of(std::string_view("\r\n\0", 3)) == none;
    for (const char c : needle)
        asciiOnly = asciiOnly && static_cast<unsigned char>(c) < 0x80;
    if (canMatch) ChooseAnchors();
}

TSearchMatcher::TAnchor TSearchMatcher::MakeAnchor(std::size_t offset) const {
    const auto b = static_cast<unsigned char>(needle[offset]);
    if (caseSensitive) return {offset, b, 0, 0xFF};
    // Only ASCII bytes fold to ASCII; a folded byte above 0x7F may come from
    // any byte above 0x7F.
    if (b >= 0x80) return {offset, 0x80, 0, 0x80};
    if (IsAsciiLetter(b)) return {offset, b, 0x20, 0xFF};
    return {offset, b, 0, 0xFF};
}

void TSearchMatcher::ChooseAnchors() {
    auto weight = [this](std::size_t i) {
        const auto b = static_cast<unsigned char>(needle[i]);
        const int w = Weight(b);
        // Both cases of a letter come through when case is ignored.
        return (!caseSensitive && IsAsciiLetter(b)) ? w + 3 : (caseSensitive && b >= 0x80 ? 5 : w);
    };
    std::size_t best = 0;
    for (std::size_t i = 1; i < needle.size(); ++i)
        if (weight(i) < weight(best)) best = i;
    std::size_t next = best == 0 ? needle.size() - 1 : 0;
    for (std::size_t i = 0; i < needle.size(); ++i)
        if (i != best && weight(i) < weight(next)) next = i;
    first = MakeAnchor(best);
    second = MakeAnchor(next);
}

bool TSearchMatcher::Verify(const char* begin, const char* end, std::size_t at) const {
    const char* p = begin + at;
    if (caseSensitive) return std::memcmp(p, needle.data(), needle.size()) == 0;
    if (!asciiOnly) return VerifyFolded(begin, end, at);
    // An ASCII text matches only ASCII bytes, and those fold alone.
    for (std::size_t i = 0; i < needle.size(); ++i) {
        const auto b = static_cast<unsigned char>(p[i]);
        if (b >= 0x80 || LowerAscii(b) != static_cast<unsigned char>(needle[i])) return false;
    }
    return true;
}

// Folds a window around the place. A byte that is no UTF-8 continuation byte
// always starts a character, so folding from the nearest such byte in front
// (at most three back) reads the characters as the whole line would.
bool TSearchMatcher::VerifyFolded(const char* begin, const char* end, std::size_t at) const {
    auto isContinuation = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
    std::size_t start = at;
    for (std::size_t back = 0; back < lookBehind && start > 0 && isContinuation(begin[start]);
         ++back)
        --start;
    const std::size_t stop =
        std::min(static_cast<std::size_t>(end - begin), at + needle.size() + lookAhead);
    const std::string folded = casefold::Lower(std::string_view(begin + start, stop - start));
    return std::string_view(folded).substr(at - start, needle.size()) == needle;
}

std::size_t TSearchMatcher::FindPlain(const char* begin, std::size_t from,
                                      std::size_t limit) const {
    for (std::size_t s = from; s < limit; ++s) {
        if (first.Admits(static_cast<unsigned char>(begin[s + first.offset])) &&
            second.Admits(static_cast<unsigned char>(begin[s + second.offset])))
            return s;
    }
    return none;
}

#if defined(__x86_64__)
namespace {

// Scans 32 starts at a time; calls verify on each start where both anchors
// stand. Leaves s at the first start it has not looked at.
template <typename Verify>
__attribute__((target("avx2"))) std::size_t
ScanAvx2(const char* begin, std::size_t& s, std::size_t limit, std::size_t offset1,
         const unsigned char (&a1)[3], std::size_t offset2, const unsigned char (&a2)[3],
         Verify&& verify) {
    const __m256i or1 = _mm256_set1_epi8(static_cast<char>(a1[1]));
    const __m256i and1 = _mm256_set1_epi8(static_cast<char>(a1[2]));
    const __m256i value1 = _mm256_set1_epi8(static_cast<char>(a1[0]));
    const __m256i or2 = _mm256_set1_epi8(static_cast<char>(a2[1]));
    const __m256i and2 = _mm256_set1_epi8(static_cast<char>(a2[2]));
    const __m256i value2 = _mm256_set1_epi8(static_cast<char>(a2[0]));
    for (; s + 32 <= limit; s += 32) {
        const __m256i v1 =
            _mm256_loadu_si256(reinterpret_cast<const __m256i*>(begin + s + offset1));
        const __m256i v2 =
            _mm256_loadu_si256(reinterpret_cast<const __m256i*>(begin + s + offset2));
        const __m256i m1 =
            _mm256_cmpeq_epi8(_mm256_and_si256(_mm256_or_si256(v1, or1), and1), value1);
        const __m256i m2 =
            _mm256_cmpeq_epi8(_mm256_and_si256(_mm256_or_si256(v2, or2), and2), value2);
        auto hits = static_cast<std::uint32_t>(_mm256_movemask_epi8(_mm256_and_si256(m1, m2)));
        while (hits) {
            const std::size_t at = s + static_cast<std::size_t>(__builtin_ctz(hits));
            hits &= hits - 1;
            if (verify(at)) return at;
        }
    }
    return none;
}

template <typename Verify>
std::size_t ScanSse2(const char* begin, std::size_t& s, std::size_t limit, std::size_t offset1,
                     const unsigned char (&a1)[3], std::size_t offset2,
                     const unsigned char (&a2)[3], Verify&& verify) {
    const __m128i or1 = _mm_set1_epi8(static_cast<char>(a1[1]));
    const __m128i and1 = _mm_set1_epi8(static_cast<char>(a1[2]));
    const __m128i value1 = _mm_set1_epi8(static_cast<char>(a1[0]));
    const __m128i or2 = _mm_set1_epi8(static_cast<char>(a2[1]));
    const __m128i and2 = _mm_set1_epi8(static_cast<char>(a2[2]));
    const __m128i value2 = _mm_set1_epi8(static_cast<char>(a2[0]));
    for (; s + 16 <= limit; s += 16) {
        const __m128i v1 = _mm_loadu_si128(reinterpret_cast<const __m128i*>(begin + s + offset1));
        const __m128i v2 = _mm_loadu_si128(reinterpret_cast<const __m128i*>(begin + s + offset2));
        const __m128i m1 = _mm_cmpeq_epi8(_mm_and_si128(_mm_or_si128(v1, or1), and1), value1);
        const __m128i m2 = _mm_cmpeq_epi8(_mm_and_si128(_mm_or_si128(v2, or2), and2), value2);
        auto hits = static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_and_si128(m1, m2)));
        while (hits) {
            const std::size_t at = s + static_cast<std::size_t>(__builtin_ctz(hits));
            hits &= hits - 1;
            if (verify(at)) return at;
        }
    }
    return none;
}

const bool haveAvx2 = __builtin_cpu_supports("avx2");

} // namespace
#endif

// Every start in [from, limit) has its whole text inside [begin, end), so the
// anchor loads stay inside too.
std::size_t TSearchMatcher::Find(const char* begin, const char* end, std::size_t from,
                                 std::size_t limit) const {
    if (!canMatch) return none;
    std::size_t s = from;
    auto verify = [&](std::size_t at) { return Verify(begin, end, at); };
#if defined(__x86_64__)
    const unsigned char a1[3] = {first.value, first.orMask, first.andMask};
    const unsigned char a2[3] = {second.value, second.orMask, second.andMask};
    const std::size_t found =
        haveAvx2 ? ScanAvx2(begin, s, limit, first.offset, a1, second.offset, a2, verify)
                 : ScanSse2(begin, s, limit, first.offset, a1, second.offset, a2, verify);
    if (found != none) return found;
#endif
    for (; s < limit; ++s) {
        const std::size_t at = FindPlain(begin, s, limit);
        if (at == none) return none;
        if (Verify(begin, end, at)) return at;
        s = at;
    }
    return none;
}
