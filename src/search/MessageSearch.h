#pragma once
// TMessageSearch: the hits of one search text in one message file. The file
// is read once, block by block, into a buffer that is reused from file to
// file, so a message of any size takes no more memory than one block plus the
// text; the lines end where the list class ends them, and the text ends at
// its first NUL byte. A hit is a line: its first match, by line index from 0
// and position from 1. Line ends are counted only up to a hit.
//
// One object serves one thread.

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "search/SearchMatcher.h"

struct TLineHit {
    std::int64_t line;     // index of the line in the file, from 0
    std::int64_t position; // of the first match in the line, from 1
    friend bool operator==(const TLineHit&, const TLineHit&) = default;
};

class TMessageSearch {
public:
    static constexpr std::size_t defaultBlock = 1 << 20;

    explicit TMessageSearch(const TSearchMatcher& matcher, std::size_t block = defaultBlock);

    // Appends the hits of the file to hits. False if the file cannot be
    // opened or read, or is no plain file (a pipe, a device, a folder): such
    // a file gives no hits. Never waits on a file that has no data yet.
    bool SearchFile(const char* path, std::vector<TLineHit>& hits);
    // The same on a file opened by the caller (not open: false).
    bool SearchOpenFile(int fd, std::vector<TLineHit>& hits);
    // The same on bytes in memory, read block by block as a file would be.
    void SearchText(std::string_view text, std::vector<TLineHit>& hits);

private:
    template <typename Read> bool Run(Read&& read, std::vector<TLineHit>& hits);
    bool Refill(auto&& read, std::size_t pos);
    void CountUpTo(std::size_t absolute);
    void AddHit(std::size_t at, std::vector<TLineHit>& hits);
    const char* At(std::size_t absolute) const { return buffer.get() + (absolute - base); }

    const TSearchMatcher& matcher;
    std::size_t block;
    std::size_t capacity;
    std::unique_ptr<char[]> buffer;

    // The state of one file, in absolute byte offsets.
    std::size_t base = 0;  // offset of buffer[0]
    std::size_t avail = 0; // bytes in the buffer
    bool atEnd = false;    // no more bytes come: end of file, NUL byte or read error
    bool failed = false;
    std::size_t counted = 0;    // line ends are counted up to here
    std::int64_t lineIndex = 0; // lines that end before counted
    std::size_t lineStart = 0;  // start of the line that holds counted
};
