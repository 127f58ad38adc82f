#include "inbox/MessageReader.h"

#include <fcntl.h>
#include <sys/stat.h>

#include "foundation/ReadAhead.h"
#include "foundation/Utils.h"

namespace {

using TState = TScannedMessage::TState;

// What the folder listing leaves out: folders and files of size 0.
bool IsNotListed(const struct stat& st) {
    return S_ISDIR(st.st_mode) || st.st_size == 0;
}

} // namespace

void TMessageReader::Read(int dirFd, const char* name, int fd, TScannedMessage& out) {
    Read(fd, out);
    if (fd >= 0) return;
    struct stat st {};
    if (::fstatat(dirFd, name, &st, 0) != 0 || IsNotListed(st)) out.State = TState::NotListed;
}

// The read-ahead's way: links are followed, as the listing followed them,
// and a pipe put in a message's place cannot hold the scan.
int TMessageReader::Open(int dirFd, const char* name) {
    return TReadAhead::Open(dirFd, name);
}

void TMessageReader::Read(int fd, TScannedMessage& out) {
    out.State = TState::Unreadable;
    out.WalkPasses = 0;
    struct stat st {};
    if (fd < 0 || ::fstat(fd, &st) != 0) return;
    if (IsNotListed(st)) {
        out.State = TState::NotListed;
        return;
    }
    if (!S_ISREG(st.st_mode)) return;
    const auto size = static_cast<std::size_t>(st.st_size);
    const bool read = ReadWhole(fd, size, out);
    if (!read || out.State != TState::Read) return;
    out.SentDate = out.Date;
    out.Date = TUtils::NormaliseDate(AnsiString(std::move(out.Date))).str();
    // The size as the entry gives it after the read. When the read met the
    // end where the entry said it was, that answer still holds; a file that
    // changed while it was read is asked again. A file removed by then has no
    // link left and counts as gone.
    if (!text.EndedAt(size) && ::fstat(fd, &st) != 0) st.st_nlink = 0;
    out.Size = st.st_nlink > 0 ? static_cast<std::uint32_t>(st.st_size) : 0;
    out.Device = st.st_dev;
    out.Inode = st.st_ino;
}

bool TMessageReader::ReadWhole(int fd, std::size_t size, TScannedMessage& out) {
    switch (text.LoadFrom(fd, limit, size)) {
    case TMessageText::TLoad::Failed:
        return false;
    case TMessageText::TLoad::TooLarge:
        return Stream(fd, out);
    case TMessageText::TLoad::Whole:
        break;
    }
    if (!text.HasLines()) {
        out.State = TState::NoLines;
        return true;
    }
    out.State = TState::Read;
    out.From.assign(FindHeader(text, "From:"));
    out.Subject.assign(FindHeader(text, "Subject:"));
    out.Date.assign(FindHeader(text, "Date:"));
    out.ContentType.assign(FindHeader(text, "Content-Type:"));
    out.Attachments.clear();
    ::WalkMultipart(
        text,
        [&](const AnsiString& name) {
            if (!out.Attachments.empty()) out.Attachments += ", ";
            out.Attachments += name.view();
        },
        [&] { ++out.WalkPasses; });
    return true;
}

bool TMessageReader::Stream(int fd, TScannedMessage& out) {
    stream.Reset();
    bool more = stream.Feed(text.Raw());
    while (more) {
        const auto bytes = text.ReadMore(fd);
        if (!bytes) return false;
        if (bytes->empty()) break;
        more = stream.Feed(*bytes);
    }
    if (stream.Empty()) {
        out.State = TState::NoLines;
        return true;
    }
    out.State = TState::Read;
    stream.Finish(out);
    return true;
}
