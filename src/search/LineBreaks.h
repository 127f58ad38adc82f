#pragma once
// Line ends in a byte range, by the list's rules: CR LF, a lone CR and a lone
// LF each end one line. These are the loops the search runs between hits, so
// they look at 16 or 32 bytes at a time.

#include <cstddef>
#include <cstdint>

namespace linebreaks {

// The first CR or LF in [p, p + n), or n if there is none.
std::size_t FindBreak(const char* p, std::size_t n);
// The last CR or LF in [p, p + n), or n if there is none.
std::size_t FindLastBreak(const char* p, std::size_t n);
// How many lines end in [p, p + n). A CR at p[n - 1] counts as a whole line
// end, so the caller never cuts a range between a CR and its LF.
std::int64_t CountBreaks(const char* p, std::size_t n);

} // namespace linebreaks
