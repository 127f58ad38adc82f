// TInboxFrm: the hand-off file and the scan of a mailbox into rows.

#include "foundation/Utils.h"
#include "inbox/HeaderReader.h"
#include "inbox/InboxForm.h"
#include "inbox/MessageText.h"
#include "platform/Application.h"

namespace {

void Yield() {
    if (Application) Application->ProcessMessages();
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

int TInboxFrm::ScanMessages() {
    AnsiString title;
    SetCaption(title.sprintf("Saved Messages For: %s", MailboxName.c_str()));
    lvEmailList.BeginUpdate();
    MessageFiles.Clear();
    const TSortType sortType = lvEmailList.SortType();
    lvEmailList.SetSortType(TSortType::stNone);
    lvEmailList.Clear();

    const AnsiString mask = Utils->AddBackslash(MailboxFolder) + "*.eml";
    const int filterType = LMDcbFilterType.ItemIndex();
    if (Utils->SearchFiles(mask, faAnyFile, MessageFiles, false)) {
        for (int i = 0; i < MessageFiles.Count(); ++i) {
            Yield();
            ScanMessage(MessageFiles[i], filterType);
        }
    }
    AnsiString status;
    LMDpfStatusBar.SetCaption(status.sprintf("%d Messages", lvEmailList.Count()));
    lvEmailList.SetSortType(sortType);
    lvEmailList.EndUpdate();
    return MessageFiles.Count();
}

void TInboxFrm::ScanMessage(const AnsiString& name, int filterType) {
    const AnsiString path = Utils->AddBackslash(MailboxFolder) + name;
    if (!message.Load(path.c_str()) || !message.HasLines()) return;
    const std::string_view from = FindHeader(message, "From:");
    const std::string_view subject = FindHeader(message, "Subject:");
    const AnsiString date = TUtils::NormaliseDate(AnsiString(FindHeader(message, "Date:")));

    if (filterType >= 1 && filterType <= 3) {
        const std::string_view tested = filterType == 1   ? from
                                        : filterType == 2 ? subject
                                                          : date.view();
        if (text::Pos(tested, LMDcbFilterText.Text().view()) == 0) return;
    } else {
        CollectFilterTexts(from, subject, date);
    }

    // The walk yields to the message loop, where a column click may sort the
    // rows and another handler may even read a file into the same buffer; the
    // row's texts are therefore copied out, and the names gathered, before the
    // row joins the list.
    TListItem row;
    row.Caption = AnsiString(from);
    row.SubItems = {AnsiString(subject),
                    date,
                    AnsiString(static_cast<unsigned long>(message.FileSize())),
                    AnsiString(),
                    AnsiString(FindHeader(message, "Content-Type:")),
                    name};
    AnsiString& attachments = row.SubItems[3];
    ::WalkMultipart(
        message,
        [&](const AnsiString& file) {
            if (!attachments.IsEmpty()) attachments += ", ";
            attachments += file;
        },
        Yield);
    // The Date header as the message has it, for the arrival date's tooltip.
    if (const std::string_view sent = FindHeader(message, "Date:"); !sent.empty())
        row.Hint = AnsiString("Date: ") + AnsiString(sent);
    lvEmailList.Add() = std::move(row);
}

void TInboxFrm::CollectFilterTexts(std::string_view from, std::string_view subject,
                                   const AnsiString& date) {
    if (!from.empty()) FromFilterTexts.Add(AnsiString(from));
    if (!subject.empty()) {
        const auto colon = subject.find(':');
        SubjectFilterTexts.Add(colon == std::string_view::npos
                                   ? AnsiString(subject)
                                   : AnsiString(subject.substr(colon + 1, 255)));
    }
    if (!date.IsEmpty()) DateFilterTexts.Add(UpToFirstBlank(date));
}
