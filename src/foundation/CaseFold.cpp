#include "foundation/CaseFold.h"

#include <array>
#include <cstdint>

namespace casefold {
namespace {

// Unicode code points of the Windows-1252 bytes 0x80..0x9F; 0 where unassigned.
constexpr std::array<char32_t, 32> kCp1252High = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

struct Decoded {
    char32_t cp;
    int length;
    bool utf8; // false: a single byte read as Windows-1252
};

Decoded Decode(std::string_view s, std::size_t i) {
    const auto b0 = static_cast<unsigned char>(s[i]);
    if (b0 < 0x80) return {b0, 1, true};
    int length = 0;
    char32_t cp = 0;
    if (b0 >= 0xC2 && b0 <= 0xDF)
        length = 2, cp = b0 & 0x1F;
    else if (b0 >= 0xE0 && b0 <= 0xEF)
        length = 3, cp = b0 & 0x0F;
    else if (b0 >= 0xF0 && b0 <= 0xF4)
        length = 4, cp = b0 & 0x07;
    if (length > 0 && i + static_cast<std::size_t>(length) <= s.size()) {
        bool ok = true;
        for (int k = 1; k < length && ok; ++k) {
            const auto b = static_cast<unsigned char>(s[i + static_cast<std::size_t>(k)]);
            ok = (b & 0xC0) == 0x80;
            cp = (cp << 6) | (b & 0x3F);
        }
        const bool overlong = (length == 3 && cp < 0x800) || (length == 4 && cp < 0x10000);
        if (ok && !overlong && cp <= 0x10FFFF) return {cp, length, true};
    }
    const char32_t wide = b0 < 0xA0 ? kCp1252High[b0 - 0x80] : char32_t{b0};
    return {wide ? wide : char32_t{b0}, 1, false};
}

// Lower-case partner of a code point, for Latin-1, Latin Extended-A, Greek and Cyrillic.
char32_t ToLowerCp(char32_t c) {
    if (c >= 'A' && c <= 'Z') return c + 32;
    if (c < 0xC0) return c;
    if (c <= 0xDE) return c == 0xD7 ? c : c + 0x20;
    if (c >= 0x100 && c <= 0x17F) {
        if (c == 0x178) return 0xFF;
        const bool oddIsUpper = (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E);
        const bool paired =
            (c <= 0x12F) || (c >= 0x132 && c <= 0x137) || (c >= 0x14A && c <= 0x177) || oddIsUpper;
        if (!paired) return c;
        const bool isUpper = oddIsUpper ? (c & 1) : !(c & 1);
        return isUpper ? c + 1 : c;
    }
    if (c >= 0x391 && c <= 0x3A9 && c != 0x3A2) return c + 0x20;
    if (c >= 0x410 && c <= 0x42F) return c + 0x20;
    if (c >= 0x400 && c <= 0x40F) return c + 0x50;
    return c;
}

char32_t ToUpperCp(char32_t c) {
    if (c >= 'a' && c <= 'z') return c - 32;
    if (c < 0xE0) return c;
    if (c <= 0xFE) return c == 0xF7 ? c : c - 0x20;
    if (c == 0xFF) return 0x178;
    // In Latin Extended-A the capital always stands right in front of its small letter.
    if (c >= 0x101 && c <= 0x17F && ToLowerCp(c - 1) == c) return c - 1;
    if (c >= 0x3B1 && c <= 0x3C9 && c != 0x3C2) return c - 0x20;
    if (c >= 0x430 && c <= 0x44F) return c - 0x20;
    if (c >= 0x450 && c <= 0x45F) return c - 0x50;
    return c;
}

// Windows-1252 byte folding, for bytes that are not part of valid UTF-8.
unsigned char ByteToLower(unsigned char b) {
    if (b >= 'A' && b <= 'Z') return b + 32;
    if (b >= 0xC0 && b <= 0xDE && b != 0xD7) return b + 0x20;
    switch (b) {
    case 0x8A:
        return 0x9A;
    case 0x8C:
        return 0x9C;
    case 0x8E:
        return 0x9E;
    case 0x9F:
        return 0xFF;
    default:
        return b;
    }
}

unsigned char ByteToUpper(unsigned char b) {
    if (b >= 'a' && b <= 'z') return b - 32;
    if (b >= 0xE0 && b <= 0xFE && b != 0xF7) return b - 0x20;
    switch (b) {
    case 0x9A:
        return 0x8A;
    case 0x9C:
        return 0x8C;
    case 0x9E:
        return 0x8E;
    case 0xFF:
        return 0x9F;
    default:
        return b;
    }
}

void AppendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

template <typename CpFold, typename ByteFold>
std::string Fold(std::string_view s, CpFold cpFold, ByteFold byteFold) {
    std::string out;
    out.reserve(s.size());
    for (std::size_t i = 0; i < s.size();) {
        const auto b = static_cast<unsigned char>(s[i]);
        if (b < 0x80) {
            out += static_cast<char>(byteFold(b));
            ++i;
            continue;
        }
        const Decoded d = Decode(s, i);
        if (!d.utf8) {
            out += static_cast<char>(byteFold(b));
        } else if (d.length == 2) {
            // Every partner of a two-byte letter is itself two bytes long.
            const char32_t folded = cpFold(d.cp);
            if (folded >= 0x80 && folded < 0x800)
                AppendUtf8(out, folded);
            else
                out.append(s.substr(i, 2));
        } else {
            out.append(s.substr(i, static_cast<std::size_t>(d.length)));
        }
        i += static_cast<std::size_t>(d.length);
    }
    return out;
}

// Base letter of an accented Latin lower-case letter, or 0 if it has none.
char32_t BaseLetter(char32_t c) {
    static constexpr char kLatin1[] = "aaaaaaaceeeeiiiidnooooo\0ouuuuyty"; // U+00E0..U+00FF
    static constexpr char kExtA[] =
        "aaaaaaccccccccddddeeeeeeeeeegggggggghhhhiiiiiiiiiiiijjkkklllllll"
        "lllnnnnnnnnnoooooooorrrrrrssssssssttttttuuuuuuuuuuuuwwyyyzzzzzzs"; // U+0100..U+017F
    static_assert(sizeof(kLatin1) == 33 && sizeof(kExtA) == 129);
    if (c < 0x80) return c;
    if (c == 0xDF) return 's';
    if (c >= 0xE0 && c <= 0xFF) return static_cast<unsigned char>(kLatin1[c - 0xE0]);
    if (c >= 0x100 && c <= 0x17F) return static_cast<unsigned char>(kExtA[c - 0x100]);
    return 0;
}

enum class CharClass : std::uint8_t { Symbol, Digit, Letter };

struct SortKey {
    CharClass cls;
    char32_t primary;   // what decides first: the class, then the base character
    char32_t secondary; // the folded character, to order accents after their base
};

SortKey KeyOf(char32_t c) {
    const char32_t lower = ToLowerCp(c);
    if (lower >= '0' && lower <= '9') return {CharClass::Digit, lower, lower};
    if (lower >= 'a' && lower <= 'z') return {CharClass::Letter, lower, lower};
    const bool symbol =
        lower < 0xC0 || lower == 0xD7 || lower == 0xF7 || (lower >= 0x2000 && lower <= 0x2BFF);
    if (symbol) return {CharClass::Symbol, lower, lower};
    const char32_t base = BaseLetter(lower);
    // Letters of other scripts follow z, in code point order.
    return {CharClass::Letter, base ? base : lower + 0x10000, lower};
}

int Sign(long long v) {
    return (v > 0) - (v < 0);
}

} // namespace

std::string Lower(std::string_view s) {
    return Fold(s, ToLowerCp, ByteToLower);
}
std::string Upper(std::string_view s) {
    return Fold(s, ToUpperCp, ByteToUpper);
}

int CompareText(std::string_view a, std::string_view b) {
    std::size_t i = 0, j = 0;
    int secondary = 0;
    while (i < a.size() && j < b.size()) {
        if (a[i] == b[j] && static_cast<unsigned char>(a[i]) < 0x80) { // the common case
            ++i;
            ++j;
            continue;
        }
        const Decoded da = Decode(a, i);
        const Decoded db = Decode(b, j);
        if (da.cp != db.cp) {
            const SortKey ka = KeyOf(da.cp);
            const SortKey kb = KeyOf(db.cp);
            if (ka.cls != kb.cls) return Sign(static_cast<int>(ka.cls) - static_cast<int>(kb.cls));
            if (ka.primary != kb.primary)
                return Sign(static_cast<long long>(ka.primary) - kb.primary);
            if (secondary == 0)
                secondary = Sign(static_cast<long long>(ka.secondary) - kb.secondary);
        }
        i += static_cast<std::size_t>(da.length);
        j += static_cast<std::size_t>(db.length);
    }
    if (i < a.size()) return 1;
    if (j < b.size()) return -1;
    return secondary;
}

} // namespace casefold
