#include "foundation/AnsiString.h"

#include <algorithm>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "foundation/CaseFold.h"

namespace text {

int Pos(std::string_view haystack, std::string_view needle) {
    if (needle.empty() || haystack.empty()) return 0;
    const auto at = haystack.find(needle);
    return at == std::string_view::npos ? 0 : static_cast<int>(at) + 1;
}

static bool IsBlankOrControl(char c) {
    return static_cast<unsigned char>(c) <= 32;
}

std::string_view TrimLeft(std::string_view s) {
    std::size_t i = 0;
    while (i < s.size() && IsBlankOrControl(s[i]))
        ++i;
    return s.substr(i);
}

std::string_view TrimRight(std::string_view s) {
    std::size_t n = s.size();
    while (n > 0 && IsBlankOrControl(s[n - 1]))
        --n;
    return s.substr(0, n);
}

std::string_view Trim(std::string_view s) {
    return TrimRight(TrimLeft(s));
}

std::string_view SubString(std::string_view s, int index, int count) {
    const int length = static_cast<int>(s.size());
    if (index > length || count < 1) return {};
    if (index < 1) index = 1;
    const int available = length - index + 1;
    return s.substr(static_cast<std::size_t>(index - 1),
                    static_cast<std::size_t>(std::min(count, available)));
}

} // namespace text

AnsiString::AnsiString(const char* text) {
    if (text) bytes = text;
}

AnsiString::AnsiString(unsigned long number) : bytes(std::to_string(number)) {}

char& AnsiString::operator[](int index) {
    if (index < 1 || index > Length()) throw ERangeError("Range check error");
    return bytes[static_cast<std::size_t>(index - 1)];
}

char AnsiString::operator[](int index) const {
    if (index < 1 || index > Length()) throw ERangeError("Range check error");
    return bytes[static_cast<std::size_t>(index - 1)];
}

int AnsiString::Pos(const AnsiString& sub) const {
    return text::Pos(bytes, sub.bytes);
}

AnsiString AnsiString::SubString(int index, int count) const {
    return AnsiString(text::SubString(bytes, index, count));
}

AnsiString& AnsiString::Delete(int index, int count) {
    if (index < 1 || index > Length() || count < 1) return *this;
    bytes.erase(static_cast<std::size_t>(index - 1), static_cast<std::size_t>(count));
    return *this;
}

AnsiString& AnsiString::Insert(const AnsiString& sub, int index) {
    index = std::clamp(index, 1, Length() + 1);
    bytes.insert(static_cast<std::size_t>(index - 1), sub.bytes);
    return *this;
}

AnsiString AnsiString::LowerCase() const {
    return AnsiString(casefold::Lower(bytes));
}
AnsiString AnsiString::UpperCase() const {
    return AnsiString(casefold::Upper(bytes));
}
AnsiString AnsiString::Trim() const {
    return AnsiString(text::Trim(bytes));
}
AnsiString AnsiString::TrimLeft() const {
    return AnsiString(text::TrimLeft(bytes));
}
AnsiString AnsiString::TrimRight() const {
    return AnsiString(text::TrimRight(bytes));
}

namespace {

int DigitValue(char c, int base) {
    int v = -1;
    if (c >= '0' && c <= '9')
        v = c - '0';
    else if (c >= 'a' && c <= 'f')
        v = c - 'a' + 10;
    else if (c >= 'A' && c <= 'F')
        v = c - 'A' + 10;
    return v < base ? v : -1;
}

} // namespace

int AnsiString::ToIntDef(int def) const {
    // Blanks may stand in front; any other byte there, or behind, spoils the number.
    std::string_view s = bytes;
    while (!s.empty() && s.front() == ' ')
        s.remove_prefix(1);
    bool negative = false;
    if (!s.empty() && (s[0] == '+' || s[0] == '-')) {
        negative = s[0] == '-';
        s.remove_prefix(1);
    }
    int base = 10;
    if (!s.empty() && s[0] == '$') {
        base = 16;
        s.remove_prefix(1);
    } else if (s.size() >= 2 && s[0] == '0' && (s[1] == 'x' || s[1] == 'X')) {
        base = 16;
        s.remove_prefix(2);
    }
    if (s.empty()) return def;
    std::int64_t value = 0;
    for (char c : s) {
        const int digit = DigitValue(c, base);
        if (digit < 0) return def;
        value = value * base + digit;
        if (value > std::int64_t{1} << 32) return def;
    }
    if (negative) value = -value;
    if (value < INT32_MIN || value > INT32_MAX) return def;
    return static_cast<int>(value);
}

bool AnsiString::IsDelimiter(const AnsiString& delims, int index) const {
    if (index < 1 || index > Length()) return false;
    return delims.bytes.find(bytes[static_cast<std::size_t>(index - 1)]) != std::string::npos;
}

int AnsiString::LastDelimiter(const AnsiString& delims) const {
    if (delims.IsEmpty()) return 0;
    const auto at = bytes.find_last_of(delims.bytes);
    return at == std::string::npos ? 0 : static_cast<int>(at) + 1;
}

namespace {

std::string Format(const char* format, va_list args) {
    va_list copy;
    va_copy(copy, args);
    const int needed = std::vsnprintf(nullptr, 0, format, copy);
    va_end(copy);
    if (needed <= 0) return {};
    std::string out(static_cast<std::size_t>(needed) + 1, '\0');
    std::vsnprintf(out.data(), out.size(), format, args);
    out.resize(static_cast<std::size_t>(needed));
    return out;
}

} // namespace

AnsiString& AnsiString::sprintf(const char* format, ...) {
    va_list args;
    va_start(args, format);
    bytes = Format(format, args);
    va_end(args);
    return *this;
}

AnsiString& AnsiString::cat_sprintf(const char* format, ...) {
    va_list args;
    va_start(args, format);
    bytes += Format(format, args);
    va_end(args);
    return *this;
}
