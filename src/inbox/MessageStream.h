#pragma once
// The row's texts of a message too large to hold, gathered in one pass over
// its lines as they stream by. Only the first bytes of a line can decide a
// match or a value, so each line is kept to a bounded prefix; the results
// are those of the header reader and the walk on the whole text.

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "inbox/ScannedMessage.h"

class TMessageStream {
public:
    TMessageStream();
    // Starts a new message.
    void Reset();
    // Feeds the next bytes. False once a NUL ended the text: later bytes
    // do not count.
    bool Feed(std::string_view bytes);
    // Ends the text and writes the texts into out (not Size and the rest).
    void Finish(TScannedMessage& out);
    // True while no byte of text has come: the message has no lines.
    bool Empty() const { return empty; }

private:
    enum class TWalk { Boundary, Delimiter, FileName, Skip, Ended };
    void EndLine();
    void Line(std::string_view line);
    void WalkLine(std::string_view line);
    void Append(std::string_view bytes);

    std::array<std::string, 4> headers; // From, Subject, Date, Content-Type
    std::array<bool, 4> found{};
    std::string line; // the current line's prefix
    bool lineBlank = true;
    bool lineOpen = false;
    bool afterCr = false;
    bool ended = false;
    bool empty = true;
    TWalk walk = TWalk::Boundary;
    std::string boundary;
    std::string attachments;
    int passes = 0;
};
