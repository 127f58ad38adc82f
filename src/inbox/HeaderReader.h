#pragma once
// The header reader of the inbox and the attachment walk, on any sequence of
// lines that index to text: a string list, or the views of a message buffer.
//
// A name matches a line when its first occurrence begins in columns 1 to 19,
// searched case-sensitively; the search runs on into the body. The value is
// cut from the trimmed line at the length of the name, at most 512 bytes, and
// trimmed again; "NA" when no line matches.

#include <string_view>

#include "foundation/AnsiString.h"

namespace header {

inline constexpr std::string_view notFound = "NA";

// True if the first occurrence of name in line begins within the first 19 bytes.
inline bool MatchesInHeaderColumns(std::string_view line, std::string_view name) {
    if (name.empty()) return false;
    const std::size_t window = name.size() + 18;
    return line.substr(0, window).find(name) != std::string_view::npos;
}

inline std::string_view ValueOf(std::string_view line, std::string_view name) {
    const std::string_view trimmed = text::Trim(line);
    return text::Trim(text::SubString(trimmed, static_cast<int>(name.size()) + 1, 512));
}

template <typename Lines>
std::string_view Find(std::string_view name, int start, const Lines& lines, int count,
                      int* lineIndex = nullptr) {
    for (int i = start < 0 ? 0 : start; i < count; ++i) {
        const std::string_view line = lines[i];
        if (!MatchesInHeaderColumns(line, name)) continue;
        if (lineIndex) *lineIndex = i;
        return ValueOf(line, name);
    }
    return notFound;
}

// Removes every double quote, as the walk does with what it finds.
inline AnsiString WithoutQuotes(std::string_view value) {
    std::string out;
    out.reserve(value.size());
    for (const char c : value)
        if (c != '"') out += c;
    return AnsiString(std::move(out));
}

// Follows the delimiter lines of the first boundary and hands each name of a
// "filename=" line to addName, in file order; yield runs once per pass.
// False when the message has no boundary.
template <typename Lines, typename AddName, typename Yield>
bool WalkMultipart(const Lines& lines, int count, AddName&& addName, Yield&& yield) {
    int p = 0, q = 0;
    const AnsiString boundary = WithoutQuotes(Find("boundary=", 0, lines, count, &p));
    if (boundary.view() == notFound || boundary.IsEmpty()) return false;
    for (;;) {
        yield();
        std::string_view v = Find(boundary.view(), p + 1, lines, count, &q);
        if (v != notFound) {
            p = q + 1;
            v = Find("filename=", p, lines, count, &q);
            if (v != notFound) {
                addName(WithoutQuotes(v));
                p = q + 1;
            }
        }
        if (v == notFound) return true;
    }
}

} // namespace header
