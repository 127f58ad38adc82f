#include <algorithm>
#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <random>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include "inbox/InboxForm.h"
#include "inbox/MessageReader.h"
#include "support/GlobalScope.h"
#include "support/RandomMessage.h"
#include "support/TempFolder.h"

namespace {

using TRow = std::vector<std::string>;

TRow RowOf(const TListItem& item) {
    TRow row{item.Caption.str()};
    for (const AnsiString& field : item.SubItems)
        row.push_back(field.str());
    return row;
}

// A mailbox of odd and ordinary messages: walks of several parts, lines of
// every end, NUL bytes, empty files, and one file larger than a worker's
// buffer grows to.
void WriteMailbox(const TTempFolder& folder, int count) {
    std::mt19937 random(16);
    for (int i = 0; i < count; ++i) {
        std::string text = RandomMessage(random);
        if (i % 7 == 0)
            text = "From: p" + std::to_string(i) +
                   "\r\nContent-Type: multipart/mixed; boundary=b\r\n"
                   "\r\n--b\r\nfilename=\"a" +
                   std::to_string(i) +
                   ".txt\"\r\n\r\nx\r\n--b\r\n"
                   "filename=c.pdf\r\n\r\n" +
                   std::string(static_cast<std::size_t>(i) * 97, 'z') + "\r\n--b--\r\n";
        folder.Write("box/" + std::to_string(i) + ".eml", text);
    }
    folder.Write("box/huge.eml", "Subject: big\r\nboundary=q\r\n--q\r\nfilename=f\r\n" +
                                     std::string(TMessageReader::defaultLimit + 5, 'h') +
                                     "\r\n--q\r\nfilename=g\r\n");
}

// What the window's own line reader makes of a file: the rows as they were
// before any worker read a file.
std::optional<TRow> ExpectedRow(TInboxFrm& inbox, const std::string& path,
                                const std::string& name) {
    TStringList lines;
    try {
        lines.LoadFromFile(AnsiString(path));
    } catch (const Exception&) {
        return std::nullopt;
    }
    if (lines.Count() == 0) return std::nullopt;
    TStringList names;
    AnsiString attachments;
    if (inbox.WalkMultipart(lines, names))
        for (const AnsiString& n : names)
            attachments += (attachments.IsEmpty() ? "" : ", ") + n;
    struct stat st {};
    ::stat(path.c_str(), &st);
    return TRow{inbox.FindHeaderValue("From:", 0, lines).str(),
                inbox.FindHeaderValue("Subject:", 0, lines).str(),
                TUtils::NormaliseDate(inbox.FindHeaderValue("Date:", 0, lines)).str(),
                std::to_string(st.st_size),
                attachments.str(),
                inbox.FindHeaderValue("Content-Type:", 0, lines).str(),
                name};
}

TEST(ScanPipeline, OneTwoAndEightWorkersGiveTheRowsOfTheLineReader) {
    TTempFolder folder;
    TGlobalScope scope;
    WriteMailbox(folder, 300);
    std::vector<TRow> expected;
    for (const int workers : {1, 2, 8}) {
        TInboxFrm inbox;
        inbox.MailboxFolder = AnsiString(folder / "box");
        inbox.ScanWorkers = workers;
        inbox.ScanMessages();
        if (expected.empty()) {
            for (const AnsiString& name : inbox.MessageFiles)
                if (auto row = ExpectedRow(inbox, folder / ("box/" + name.str()), name.str()))
                    expected.push_back(*row);
            ASSERT_GT(expected.size(), 250u);
        }
        std::vector<TRow> rows;
        for (int i = 0; i < inbox.lvEmailList.Count(); ++i)
            rows.push_back(RowOf(inbox.lvEmailList.Item(i)));
        ASSERT_EQ(rows, expected) << workers << " workers";
    }
}

// A file in memory that fstat calls a plain file.
class TMemoryFile {
public:
    explicit TMemoryFile(std::string_view bytes) : fd(::memfd_create("message", MFD_CLOEXEC)) {
        EXPECT_EQ(::write(fd, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }
    ~TMemoryFile() { ::close(fd); }
    int Rewound() const {
        ::lseek(fd, 0, SEEK_SET);
        return fd;
    }

private:
    int fd;
};

TRow RecordOf(const TScannedMessage& m) {
    return {std::to_string(static_cast<int>(m.State)),
            m.From,
            m.Subject,
            m.Date,
            m.ContentType,
            m.Attachments,
            std::to_string(m.WalkPasses),
            std::to_string(m.Size)};
}

// A message larger than the buffer streams through it line by line; the
// tiny limits put every line end and name on the edge of a chunk.
TEST(MessageReader, StreamingAgreesWithTheWholeText) {
    TGlobalScope scope;
    std::mt19937 random(2026);
    TMessageReader whole;
    std::vector<TMessageReader> streaming;
    for (const std::size_t limit : {5, 64, 1000})
        streaming.emplace_back(limit);
    TScannedMessage expected, got;
    for (int round = 0; round < 800; ++round) {
        const TMemoryFile file(RandomMessage(random));
        whole.Read(file.Rewound(), expected);
        for (TMessageReader& reader : streaming) {
            reader.Read(file.Rewound(), got);
            ASSERT_EQ(RecordOf(got), RecordOf(expected)) << "round " << round;
        }
    }
}

TEST(MessageReader, APipeInAMessagesPlaceIsNotWaitedFor) {
    TTempFolder folder;
    TGlobalScope scope;
    const std::string path = folder / "swapped.eml";
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    const auto start = std::chrono::steady_clock::now();
    TMessageReader reader;
    TScannedMessage message;
    const int fd = TMessageReader::Open(AT_FDCWD, path.c_str());
    reader.Read(fd, message);
    if (fd >= 0) ::close(fd);
    // Of size 0, as the folder's listing would have found it.
    EXPECT_EQ(message.State, TScannedMessage::TState::NotListed);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

} // namespace
