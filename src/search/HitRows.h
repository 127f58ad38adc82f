#pragma once
// THitRows: what the result rows show of one message file: some of its lines
// by index, and the values of the three header keys as the settings' line
// lookup finds them (the first line that holds the key anywhere, ignoring
// case; the text behind the line's first ":", at most 512 bytes, trimmed; one
// blank for a key found nowhere). The file is read once, block by block, so
// only the wanted lines are held, each once, however large the file.

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "foundation/AnsiString.h"
#include "search/SearchMatcher.h"

class THitRows {
public:
    struct TFileValues {
        std::map<std::int64_t, std::string> lines; // index -> the whole line as read
        AnsiString date = " ", from = " ", subject = " ";
    };

    // Reads the file, keeping the lines whose indexes are in wanted. yield
    // runs once per line that the key lookup examines; when it returns false
    // the lookup stops and the keys it has not found keep their blank. False
    // if the file cannot be opened or read, or is no plain file.
    bool Read(const char* path, const std::vector<std::int64_t>& wanted,
              const std::function<bool()>& yield, TFileValues& values);

private:
    struct TKey {
        std::string name; // lower case
        TSearchMatcher matcher;
        AnsiString* value;
        bool found = false;
    };
    void StartLine(bool wanted, std::uint64_t start, const std::function<bool()>& yield);
    bool ReadSpans(int fd, TFileValues& values);
    void Feed(std::string_view piece);
    void EndLine();
    bool LineHoldsKey(TKey& key, std::string_view piece);

    std::unique_ptr<char[]> buffer;
    std::vector<TKey> keys;
    bool looking = true; // the key lookup goes on
    // The line being read.
    std::int64_t index = 0;
    bool wantedLine = false;
    std::uint64_t lineStart = 0; // its offset in the file
    std::size_t lineLength = 0;
    struct TSpan {
        std::uint64_t start;
        std::size_t length;
    };
    std::map<std::int64_t, TSpan> spans; // the wanted lines met so far
    bool colonSeen = false;              // its first ":" has passed
    std::string afterColon;              // up to 512 bytes behind it
    std::string tail;                    // its last bytes, for a key split between blocks
    std::vector<bool> inLine;            // which keys this line holds
};
