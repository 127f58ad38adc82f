// TInboxFrm: the hand-off file and the scan of a mailbox into rows.

#include <algorithm>
#include <chrono>
#include <fcntl.h>
#include <future>
#include <numeric>
#include <sys/stat.h>
#include <unistd.h>

#include "foundation/Utils.h"
#include "inbox/HeaderReader.h"
#include "inbox/InboxForm.h"
#include "inbox/ScanPipeline.h"
#include "platform/Application.h"

namespace {

void Yield() {
    if (Application) Application->ProcessMessages();
}

// Lists the folder on a thread of its own while this one goes on handling
// events. The listing only reads the folder, so even 100,000 names take
// little time; the readers of the files drop what the listing left in.
// The names are those the workers open: prefix + name, or the bare name when
// they open it in the held folder (empty prefix).
bool ListWhileYielding(const AnsiString& mask, const AnsiString& prefix,
                       std::vector<std::string>& names) {
    auto listing = std::async(std::launch::async, [&, utils = Utils] {
        return utils->ListCandidates(mask, prefix.view(), names);
    });
    while (listing.wait_for(std::chrono::milliseconds(5)) != std::future_status::ready)
        Yield();
    return listing.get();
}

struct TStringListLines {
    const TStringList& list;
    std::string_view operator[](int i) const { return list[i].view(); }
};

// The text up to the first blank, trimmed; the whole text if it has none.
AnsiString UpToFirstBlank(const AnsiString& date) {
    const int blank = date.Pos(" ");
    return blank > 0 ? date.SubString(1, blank - 1).Trim() : date;
}

} // namespace

AnsiString TInboxFrm::FindHeaderValue(const AnsiString& name, int start, const TStringList& lines,
                                      int* lineIndex) const {
    return AnsiString(
        header::Find(name.view(), start, TStringListLines{lines}, lines.Count(), lineIndex));
}

bool TInboxFrm::WalkMultipart(const TStringList& lines, TStringList& names) const {
    return header::WalkMultipart(
        TStringListLines{lines}, lines.Count(), [&](AnsiString name) { names.Add(name); }, Yield);
}

AnsiString TInboxFrm::LoadStartMailbox() {
    const AnsiString path = !HandOffPath.IsEmpty()
                                ? HandOffPath
                                : Utils->AddBackslash(Utils->GetAppFolder()) +
                                      Utils->FileStem(Application->ExeName) + ".ini";
    try {
        TStringList handOff;
        handOff.LoadFromFile(path);
        MailboxFolder = handOff[0];
        SenderLine = handOff[1];
    } catch (const Exception&) {
    }
    return Utils->FileStem(MailboxFolder);
}

// The folder that the listing of mask looks in, held open for the workers
// and for deletion.
void TInboxFrm::OpenListedFolder(const AnsiString& mask) {
    const std::string& m = mask.str();
    const auto slash = m.find_last_of("/\\");
    const std::string folder = slash == std::string::npos ? "."
                               : slash == 0               ? "/"
                                                          : m.substr(0, slash);
    listedFolder = TFileDescriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    listedFiles.clear();
    listedByName.clear();
}

int TInboxFrm::ScanMessages() {
    const unsigned generation = ++scanGeneration;
    AnsiString title;
    SetCaption(title.sprintf("Saved Messages For: %s", MailboxName.c_str()));
    lvEmailList.BeginUpdate();
    MessageFiles.Clear();
    const TSortType sortType = lvEmailList.SortType();
    lvEmailList.SetSortType(TSortType::stNone);
    lvEmailList.Clear();

    const AnsiString prefix = Utils->AddBackslash(MailboxFolder);
    const AnsiString mask = prefix + "*.eml";
    const int filterType = LMDcbFilterType.ItemIndex();
    OpenListedFolder(mask);
    // Names are opened in the held folder, unless the path the window
    // builds is not that folder's (a name that ends in a backslash).
    const bool inFolder = listedFolder.IsOpen() && (prefix.IsEmpty() || prefix.str().back() == '/');
    std::vector<std::string> names;
    const AnsiString namePrefix = inFolder ? AnsiString() : prefix;
    const bool found = ListWhileYielding(mask, namePrefix, names);
    if (generation != scanGeneration) {
        // A scan started during the listing has listed and read the folder itself.
        lvEmailList.SetSortType(sortType);
        lvEmailList.EndUpdate();
        return MessageFiles.Count();
    }
    if (found) ReadListedFiles(generation, names, namePrefix.Length(), filterType);
    FlushFilterTexts();
    AnsiString status;
    LMDpfStatusBar.SetCaption(status.sprintf("%d Messages", lvEmailList.Count()));
    lvEmailList.SetSortType(sortType);
    lvEmailList.EndUpdate();
    return MessageFiles.Count();
}

// The names listed are read in list order; a name the readers find to be a
// folder or an empty file joins neither MessageFiles nor the rows.
void TInboxFrm::ReadListedFiles(unsigned generation, std::vector<std::string>& names,
                                int namePrefix, int filterType) {
    const int count = static_cast<int>(names.size());
    const auto bareName = static_cast<std::size_t>(namePrefix);
    const bool inFolder = namePrefix == 0 && listedFolder.IsOpen();
    lvEmailList.Reserve(count);
    listedFiles.reserve(names.size());
    auto pipeline =
        std::make_unique<TScanPipeline>(inFolder ? listedFolder.Get() : AT_FDCWD, names,
                                        TScanPipeline::TOptions{.workers = ScanWorkers});
    std::chrono::steady_clock::time_point shown{};
    int added = 0;
    for (int i = 0; i < count; ++i) {
        Yield();
        // A scan started meanwhile owns MessageFiles now; this one goes on
        // with that list below, as it always did.
        if (generation != scanGeneration) {
            pipeline.reset();
            ReadFilesOfNewerScan(added, filterType);
            return;
        }
        if (pipeline && Application && Application->Terminated()) pipeline.reset();
        std::string& listed = names[static_cast<std::size_t>(i)];
        const std::string_view name = std::string_view(listed).substr(bareName);
        const TScannedMessage& message =
            pipeline ? pipeline->Take(static_cast<std::size_t>(i))
                     : ReadFile(Utils->AddBackslash(MailboxFolder) + AnsiString(name));
        if (OnScanProgress) OnScanProgress(i + 1, count);
        if (message.State == TScannedMessage::TState::NotListed) continue;
        // No thread reads the name of a file taken: a bare name moves over.
        MessageFiles.Add(bareName == 0 ? AnsiString(std::move(listed)) : AnsiString(name));
        listedFiles.emplace_back();
        ScanMessage(added++, message, filterType);
        ShowScannedRows(shown);
    }
}

// The files of the list a newer scan made, from index on, read here; the
// yield for index was made.
void TInboxFrm::ReadFilesOfNewerScan(int index, int filterType) {
    const AnsiString prefix = Utils->AddBackslash(MailboxFolder);
    for (int i = index; i < MessageFiles.Count(); ++i) {
        if (i > index) Yield();
        ScanMessage(i, ReadFile(prefix + MessageFiles[i]), filterType);
    }
}

const TScannedMessage& TInboxFrm::ReadFile(const AnsiString& path) {
    const TFileDescriptor file(TMessageReader::Open(AT_FDCWD, path.c_str()));
    reader.Read(AT_FDCWD, path.c_str(), file.Get(), scanned);
    return scanned;
}

// The rows so far go to the screen with the first one and then every tenth
// of a second, each time as one addition, not as a new list.
void TInboxFrm::ShowScannedRows(std::chrono::steady_clock::time_point& shown) {
    if (lvEmailList.Count() == 0) return;
    const auto now = std::chrono::steady_clock::now();
    if (now - shown < std::chrono::milliseconds(100)) return;
    shown = now;
    lvEmailList.ShowRowsSoFar();
}

void TInboxFrm::ScanMessage(int index, const TScannedMessage& message, int filterType) {
    if (message.State != TScannedMessage::TState::Read) return;
    const std::string_view from = message.From, subject = message.Subject, date = message.Date;
    if (filterType >= 1 && filterType <= 3) {
        const std::string_view tested = filterType == 1 ? from : filterType == 2 ? subject : date;
        if (text::Pos(tested, LMDcbFilterText.Text().view()) == 0) return;
    } else {
        CollectFilterTexts(from, subject, date);
    }
    // The row joins the list after the yields of its attachment walk, as it
    // did when the walk ran here; the record is copied first, since a yield
    // may start another scan.
    TListItem row;
    row.Caption = AnsiString(from);
    row.SubItems = {AnsiString(subject),
                    AnsiString(date),
                    AnsiString(static_cast<unsigned long>(message.Size)),
                    AnsiString(message.Attachments),
                    AnsiString(message.ContentType),
                    MessageFiles[index]};
    const TFileId id{message.Device, message.Inode};
    const unsigned generation = scanGeneration;
    for (int pass = 0; pass < message.WalkPasses; ++pass)
        Yield();
    // A scan started by a yield has listed the folder anew: index names another file.
    if (generation == scanGeneration) listedFiles[static_cast<std::size_t>(index)] = id;
    // The Date header as the message has it, for the arrival date's tooltip.
    if (!message.SentDate.empty()) row.Hint = AnsiString("Date: ") + AnsiString(message.SentDate);
    lvEmailList.Add() = std::move(row);
}

bool TInboxFrm::DeleteListedFile(const AnsiString& name) {
    if (!listedFolder.IsOpen() ||
        listedFiles.size() != static_cast<std::size_t>(MessageFiles.Count()))
        return false;
    if (listedByName.size() != listedFiles.size()) {
        listedByName.resize(listedFiles.size());
        std::iota(listedByName.begin(), listedByName.end(), 0U);
        std::sort(listedByName.begin(), listedByName.end(),
                  [this](std::uint32_t a, std::uint32_t b) {
                      return MessageFiles[static_cast<int>(a)].view() <
                             MessageFiles[static_cast<int>(b)].view();
                  });
    }
    const auto listed = std::lower_bound(listedByName.begin(), listedByName.end(), name.view(),
                                         [this](std::uint32_t a, std::string_view n) {
                                             return MessageFiles[static_cast<int>(a)].view() < n;
                                         });
    if (listed == listedByName.end() ||
        MessageFiles[static_cast<int>(*listed)].view() != name.view())
        return false;
    const TFileId id = listedFiles[*listed];
    struct stat st {};
    if (id.inode == 0 || ::fstatat(listedFolder.Get(), name.c_str(), &st, 0) != 0 ||
        st.st_dev != id.device || st.st_ino != id.inode)
        return false;
    return ::unlinkat(listedFolder.Get(), name.c_str(), 0) == 0;
}

void TInboxFrm::CollectFilterTexts(std::string_view from, std::string_view subject,
                                   std::string_view date) {
    if (!from.empty()) pendingFromTexts.Add(AnsiString(from));
    if (!subject.empty()) {
        const auto colon = subject.find(':');
        pendingSubjectTexts.Add(colon == std::string_view::npos
                                    ? AnsiString(subject)
                                    : AnsiString(subject.substr(colon + 1, 255)));
    }
    if (!date.empty()) pendingDateTexts.Add(UpToFirstBlank(AnsiString(date)));
}

void TInboxFrm::FlushFilterTexts() {
    for (TPendingLines* pending : {&pendingFromTexts, &pendingSubjectTexts, &pendingDateTexts})
        pending->Flush();
}
