#include "inbox/MessageStream.h"

#include <cstring>

#include "inbox/HeaderReader.h"

namespace {

// Past this many bytes a line's prefix only grows if it holds more than
// blanks; it never grows past the full size. The widest value read lies
// within 18 + 512 + 512 bytes of the first byte that is not blank.
constexpr std::size_t blankRoom = 2048;
constexpr std::size_t prefixRoom = 4096;

constexpr std::array<std::string_view, 4> headerNames{
    "From:", "Subject:", "Date:", "Content-Type:"};

bool IsBlank(char c) {
    return static_cast<unsigned char>(c) <= 32;
}

std::size_t FindBreak(std::string_view bytes, std::size_t from) {
    for (std::size_t i = from; i < bytes.size(); ++i)
        if (bytes[i] == '\r' || bytes[i] == '\n') return i;
    return std::string_view::npos;
}

} // namespace

TMessageStream::TMessageStream() {
    line.reserve(prefixRoom);
    Reset();
}

void TMessageStream::Reset() {
    for (std::string& h : headers)
        h.assign(header::notFound);
    found.fill(false);
    line.clear();
    lineBlank = true;
    lineOpen = afterCr = ended = false;
    empty = true;
    walk = TWalk::Boundary;
    boundary.clear();
    attachments.clear();
    passes = 0;
}

bool TMessageStream::Feed(std::string_view bytes) {
    if (ended) return false;
    if (const void* nul = std::memchr(bytes.data(), '\0', bytes.size())) {
        bytes =
            bytes.substr(0, static_cast<std::size_t>(static_cast<const char*>(nul) - bytes.data()));
        ended = true;
    }
    if (!bytes.empty()) empty = false;
    std::size_t at = 0;
    // A CR LF split over two feeds is one break.
    if (afterCr && !bytes.empty()) {
        afterCr = false;
        if (bytes[0] == '\n') at = 1;
    }
    while (at < bytes.size()) {
        const std::size_t brk = FindBreak(bytes, at);
        if (brk == std::string_view::npos) {
            Append(bytes.substr(at));
            lineOpen = true;
            break;
        }
        Append(bytes.substr(at, brk - at));
        EndLine();
        at = brk + 1;
        if (bytes[brk] == '\r') {
            if (at == bytes.size())
                afterCr = true;
            else if (bytes[at] == '\n')
                ++at;
        }
    }
    return !ended;
}

void TMessageStream::Append(std::string_view bytes) {
    if (lineBlank) {
        // A run of blanks counts no further than the room kept for it.
        std::size_t i = 0;
        while (i < bytes.size() && IsBlank(bytes[i])) {
            if (line.size() < blankRoom) line += bytes[i];
            ++i;
        }
        if (i == bytes.size()) return;
        lineBlank = false;
        bytes.remove_prefix(i);
    }
    const std::size_t room = prefixRoom - line.size();
    line.append(bytes.substr(0, room));
}

void TMessageStream::EndLine() {
    Line(line);
    line.clear();
    lineBlank = true;
    lineOpen = false;
}

void TMessageStream::Line(std::string_view text) {
    for (std::size_t i = 0; i < headerNames.size(); ++i) {
        if (found[i] || !header::MatchesInHeaderColumns(text, headerNames[i])) continue;
        found[i] = true;
        headers[i].assign(header::ValueOf(text, headerNames[i]));
    }
    if (walk != TWalk::Ended) WalkLine(text);
}

// The walk of MessageTextWalk.h, one line at a time: after the boundary line
// a delimiter, then a name line, then one line passed over, and round again.
void TMessageStream::WalkLine(std::string_view text) {
    auto value = [&](std::string_view name) -> std::optional<std::string_view> {
        if (!header::MatchesInHeaderColumns(text, name)) return std::nullopt;
        return header::ValueOf(text, name);
    };
    switch (walk) {
    case TWalk::Boundary:
        if (const auto v = value("boundary=")) {
            boundary = header::WithoutQuotes(*v).str();
            if (boundary == header::notFound || boundary.empty()) {
                walk = TWalk::Ended;
            } else {
                walk = TWalk::Delimiter;
                passes = 1;
            }
        }
        break;
    case TWalk::Delimiter:
        if (const auto v = value(boundary))
            walk = *v == header::notFound ? TWalk::Ended : TWalk::FileName;
        break;
    case TWalk::FileName:
        if (const auto v = value("filename=")) {
            if (*v == header::notFound) {
                walk = TWalk::Ended;
                break;
            }
            if (!attachments.empty()) attachments += ", ";
            attachments += header::WithoutQuotes(*v).str();
            walk = TWalk::Skip;
        }
        break;
    case TWalk::Skip:
        walk = TWalk::Delimiter;
        ++passes;
        break;
    case TWalk::Ended:
        break;
    }
}

void TMessageStream::Finish(TScannedMessage& out) {
    if (lineOpen) EndLine();
    // A walk that passed over the last line goes round once more and finds nothing.
    if (walk == TWalk::Skip) ++passes;
    out.From = headers[0];
    out.Subject = headers[1];
    out.Date = headers[2];
    out.ContentType = headers[3];
    out.Attachments = attachments;
    out.WalkPasses = passes;
}
