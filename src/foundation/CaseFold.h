#pragma once
// Case folding and the list comparison for byte text that is mostly UTF-8.
//
// Letters fold in ASCII and in the accented Latin letters of UTF-8 text; a
// multi-byte sequence is never split. Bytes that are not valid UTF-8 are read
// as Windows-1252, so old single-byte text still folds.

#include <string>
#include <string_view>

namespace casefold {

std::string Lower(std::string_view s);
std::string Upper(std::string_view s);

// The list comparison: case-insensitive, symbols (and "~") before digits,
// digits before letters, an accented letter beside its base letter. Returns
// <0, 0 or >0. Zero only for texts that differ in case alone.
int CompareText(std::string_view a, std::string_view b);

} // namespace casefold
