#pragma once
// The first place of a byte string in a text, at or after a position. This
// is the inner loop of the scan: it looks at 16 or 32 bytes at a time for
// places where the first and the last byte of the needle both stand, and
// compares only there.

#include <string_view>

// std::string_view::npos when there is none; also for an empty needle.
std::size_t FindBytes(std::string_view text, std::string_view needle, std::size_t from);
