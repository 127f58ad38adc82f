// The scan of one message file: the reader the scan's workers use, over the
// whole text and streamed through a tiny buffer, against the window's own line
// reader. All three must give the same row. The buffer's size, 5 to 71 bytes,
// comes from the input's length, so that each input streams the same way
// every time and its line ends and names fall on every edge of a chunk.

#include <string>

#include "FuzzFolder.h"
#include "foundation/Utils.h"
#include "inbox/InboxForm.h"
#include "inbox/MessageReader.h"

namespace {

struct TRow {
    TScannedMessage::TState State;
    std::string From, Subject, Date, ContentType, Attachments;
    int WalkPasses;
    std::uint32_t Size;
    bool operator==(const TRow&) const = default;
};

TRow RowOf(const TScannedMessage& m) {
    return {m.State, m.From, m.Subject, m.Date, m.ContentType, m.Attachments, m.WalkPasses, m.Size};
}

// What the window made of the file before the workers read it.
void CheckLineReader(const TInboxFrm& inbox, std::string_view bytes, const TRow& row) {
    TStringList lines;
    lines.SetText(bytes);
    // An empty file is left out as the listing would leave it out.
    const bool noRow = row.State == TScannedMessage::TState::NoLines ||
                       row.State == TScannedMessage::TState::NotListed;
    FuzzCheck((lines.Count() == 0) == noRow,
              "a file without lines is the one the list finds empty");
    if (lines.Count() == 0) return;
    TStringList names;
    AnsiString attachments;
    if (inbox.WalkMultipart(lines, names))
        for (const AnsiString& n : names)
            attachments += (attachments.IsEmpty() ? "" : ", ") + n;
    FuzzCheck(inbox.FindHeaderValue("From:", 0, lines).str() == row.From, "From");
    FuzzCheck(inbox.FindHeaderValue("Subject:", 0, lines).str() == row.Subject, "Subject");
    FuzzCheck(TUtils::NormaliseDate(inbox.FindHeaderValue("Date:", 0, lines)).str() == row.Date,
              "Date");
    FuzzCheck(inbox.FindHeaderValue("Content-Type:", 0, lines).str() == row.ContentType,
              "Content-Type");
    FuzzCheck(attachments.str() == row.Attachments, "attachments");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static TInboxFrm inbox;
    static const TFuzzFolder& folder = [&]() -> const TFuzzFolder& {
        TFuzzFolder::Get().KeepLogHere();
        return TFuzzFolder::Get();
    }();
    static TMessageReader whole;
    const std::string_view bytes = FuzzBytes(data, size);
    const int fd = folder.Memory(bytes);
    TScannedMessage message;
    whole.Read(fd, message);
    FuzzCheck(message.State != TScannedMessage::TState::Unreadable, "a plain file is read");
    const TRow expected = RowOf(message);
    TMessageReader streaming(5 + size % 67);
    streaming.Read(folder.Memory(bytes), message);
    FuzzCheck(RowOf(message) == expected, "streaming agrees with the whole text");
    CheckLineReader(inbox, bytes, expected);
    return 0;
}
