#pragma once
// The lines of one message file, read whole into a buffer that is reused from
// file to file, and indexed as views: the scan makes no copy of a line.
// Lines end at CR LF, a lone CR or a lone LF, and the text ends at its first
// NUL byte, exactly as a string list loads a file.

#include <span>
#include <string>
#include <string_view>
#include <vector>

class TMessageLines {
public:
    // Reads the file whole. False (and no lines) if it cannot be opened or read.
    bool Load(const char* path);
    // Takes the lines of text instead of a file.
    void SetText(std::string_view text);

    int Count() const { return static_cast<int>(lines.size()); }
    std::string_view operator[](int index) const { return lines[static_cast<std::size_t>(index)]; }
    std::span<const std::string_view> Lines() const { return lines; }

private:
    void IndexLines(std::size_t length);

    std::string buffer; // grows to the largest file and stays there
    std::vector<std::string_view> lines;
};
