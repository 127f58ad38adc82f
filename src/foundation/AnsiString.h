#pragma once
// A byte string with 1-based positions, where 0 means "not found".

#include <compare>
#include <string>
#include <string_view>

#include "foundation/Exceptions.h"

class AnsiString {
public:
    AnsiString() = default;
    AnsiString(const char* text); // NOLINT: implicit, text ends at its first NUL
    AnsiString(std::string text) : bytes(std::move(text)) {}
    AnsiString(std::string_view text) : bytes(text) {}
    AnsiString(const char* data, std::size_t length) : bytes(data, length) {}
    explicit AnsiString(unsigned long number);

    int Length() const { return static_cast<int>(bytes.size()); }
    bool IsEmpty() const { return bytes.empty(); }
    const char* c_str() const { return bytes.c_str(); }
    const std::string& str() const { return bytes; }
    std::string& str() { return bytes; }
    std::string_view view() const { return bytes; }
    operator std::string_view() const { return bytes; } // NOLINT

    // Byte at a 1-based position; ERangeError outside 1..Length().
    char& operator[](int index);
    char operator[](int index) const;

    friend bool operator==(const AnsiString& a, const AnsiString& b) { return a.bytes == b.bytes; }
    friend bool operator==(const AnsiString& a, const char* b) { return a.bytes == b; }
    // Unsigned byte order; a prefix is the smaller.
    friend bool operator<(const AnsiString& a, const AnsiString& b) {
        return a.bytes.compare(b.bytes) < 0;
    }
    friend bool operator>(const AnsiString& a, const AnsiString& b) { return b < a; }

    AnsiString& operator+=(const AnsiString& other) {
        bytes += other.bytes;
        return *this;
    }
    AnsiString& operator+=(const char* other) {
        bytes += other;
        return *this;
    }
    AnsiString& operator+=(char c) {
        bytes += c;
        return *this;
    }
    friend AnsiString operator+(AnsiString a, const AnsiString& b) { return a += b; }
    friend AnsiString operator+(AnsiString a, const char* b) { return a += b; }
    friend AnsiString operator+(const char* a, const AnsiString& b) { return AnsiString(a) += b; }

    int Pos(const AnsiString& sub) const;
    int AnsiPos(const AnsiString& sub) const { return Pos(sub); }
    AnsiString SubString(int index, int count) const;
    AnsiString& Delete(int index, int count);
    AnsiString& Insert(const AnsiString& sub, int index);
    AnsiString LowerCase() const;
    AnsiString UpperCase() const;
    AnsiString Trim() const;
    AnsiString TrimLeft() const;
    AnsiString TrimRight() const;
    int ToIntDef(int def) const;
    bool IsDelimiter(const AnsiString& delims, int index) const;
    int LastDelimiter(const AnsiString& delims) const;

    AnsiString& sprintf(const char* format, ...) __attribute__((format(printf, 2, 3)));
    AnsiString& cat_sprintf(const char* format, ...) __attribute__((format(printf, 2, 3)));

private:
    std::string bytes;
};

// Position-free helpers over plain bytes, shared by AnsiString and the hot
// paths that work on views of a read buffer.
namespace text {
// Pos on views: 1-based position of the first occurrence, 0 if none or if either is empty.
int Pos(std::string_view haystack, std::string_view needle);
std::string_view Trim(std::string_view s);
std::string_view TrimLeft(std::string_view s);
std::string_view TrimRight(std::string_view s);
// SubString on views, with the same bounds rules as AnsiString::SubString.
std::string_view SubString(std::string_view s, int index, int count);
} // namespace text
