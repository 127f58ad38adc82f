#pragma once
// One message file as the scan reads it: the whole file in a buffer that is
// reused from file to file, cut at its first NUL byte as a string list would
// cut it. Headers are found in place by byte search, with no list of lines:
// a line's start and end are looked up only where a name was found.
//
// Lines end at CR LF, a lone CR or a lone LF; positions given and returned
// are the byte offsets of line starts.

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string_view>

class TMessageText {
public:
    // Reads the file whole. False if it cannot be opened or read.
    bool Load(const char* path);

    enum class TLoad {
        Whole,    // the text up to the end or to the first NUL is in the buffer
        TooLarge, // the buffer holds the first limit bytes and there is more
        Failed,   // a read error
    };
    // Reads an open file from where it stands, stopping at the first NUL:
    // nothing behind it belongs to the text. sizeHint, the size the file had
    // a moment ago, sizes the buffer once instead of letting it double.
    TLoad LoadFrom(int fd, std::size_t limit, std::size_t sizeHint = 0);
    // True when the last load read the whole file and found it size bytes long.
    bool EndedAt(std::size_t size) const { return read == size && atEnd; }
    // The raw bytes of the last load that was too large.
    std::string_view Raw() const { return {buffer.get(), read}; }
    // Reads the next bytes of a file that was too large into the buffer,
    // in place of those before; empty at its end, null on an error.
    std::optional<std::string_view> ReadMore(int fd);
    // Takes text instead of a file.
    void SetText(std::string_view text);

    std::string_view Text() const { return {buffer.get(), length}; }
    // The size the file's directory entry gave right after the read, 32 bits
    // as the list shows it; 0 when the entry was gone by then.
    std::uint32_t FileSize() const { return fileSize; }
    // A text with no lines: empty, or a NUL in its first byte.
    bool HasLines() const { return length > 0; }

    struct TMatch {
        std::string_view value; // cut and trimmed as the header reader does
        std::size_t next;       // start of the line after the matching line
    };
    // The first line at or after the line start from in which name begins in
    // columns 1 to 19.
    std::optional<TMatch> Find(std::string_view name, std::size_t from) const;
    // The start of the line after the one that begins at lineStart.
    std::size_t NextLine(std::size_t lineStart) const;

private:
    void Reserve(std::size_t size);
    void CutAtNul(std::size_t end);
    // Reads into the buffer behind what it holds; the count, 0 at the end, -1 on an error.
    long ReadChunk(int fd, std::size_t room);

    struct TFree {
        void operator()(char* p) const { std::free(p); }
    };
    using TBuffer = std::unique_ptr<char, TFree>;
    TBuffer buffer; // grows to the largest file and stays there
    std::size_t capacity = 0;
    std::size_t length = 0;
    std::size_t read = 0;
    bool atEnd = false; // the last load read up to the end of its file
    std::uint32_t fileSize = 0;
};

// The header reader on a message text: the value of the first matching line,
// or "NA".
std::string_view FindHeader(const TMessageText& text, std::string_view name);

// The attachment walk on a message text, by the same rules as the walk on a
// list of lines (HeaderReader.h): addName gets each name in file order and
// yield runs once per pass. False when the message has no boundary.
template <typename AddName, typename Yield>
bool WalkMultipart(const TMessageText& text, AddName&& addName, Yield&& yield);

#include "inbox/MessageTextWalk.h"
