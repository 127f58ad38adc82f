#pragma once
// TSearchMatcher: where a search text stands in a run of message bytes, with
// or without case. Without case a place matches when the text's LowerCase
// stands there in the LowerCase of the bytes; LowerCase keeps every byte in
// its place, so positions in the folded bytes are positions in the file.
//
// Candidates come from a 16- or 32-byte scan for two bytes of the text (the
// rarest ones, each with both of its cases where it is a letter); only there
// are the full texts compared.

#include <cstddef>
#include <string>
#include <string_view>

class TSearchMatcher {
public:
    TSearchMatcher(std::string_view text, bool caseSensitive);

    // Length of the text in bytes.
    std::size_t Size() const { return needle.size(); }
    // False for a text that no line can hold: empty, or with a CR, LF or NUL.
    bool CanMatch() const { return canMatch; }
    // How many bytes a comparison may look at behind a match (for the
    // folding of a letter that ends there).
    static constexpr std::size_t lookAhead = 3;
    // How many bytes it may look at in front of a match.
    static constexpr std::size_t lookBehind = 3;

    // The first match that starts in [from, limit) of the bytes [begin, end);
    // begin is a line start or has lookBehind bytes before from, and each
    // start below limit has the text and lookAhead bytes in front of end, or
    // end is the end of the text. Returns std::string_view::npos if none.
    std::size_t Find(const char* begin, const char* end, std::size_t from, std::size_t limit) const;

private:
    struct TAnchor {
        std::size_t offset;
        unsigned char value, orMask, andMask; // (byte | orMask) & andMask == value
        bool Admits(unsigned char b) const { return ((b | orMask) & andMask) == value; }
    };
    TAnchor MakeAnchor(std::size_t offset) const;
    void ChooseAnchors();
    bool Verify(const char* begin, const char* end, std::size_t at) const;
    bool VerifyFolded(const char* begin, const char* end, std::size_t at) const;
    std::size_t FindPlain(const char* begin, std::size_t from, std::size_t limit) const;

    std::string needle; // folded when the search ignores case
    bool caseSensitive;
    bool asciiOnly = true;
    bool canMatch = false;
    TAnchor first{}, second{};
};
