#include "cli/MailboxSession.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <unistd.h>

#include "foundation/Utils.h"
#include "inbox/InboxForm.h"
#include "script/FieldEscape.h"

namespace {

int ParseFilterType(const std::string& name) {
    if (name == "from") return 1;
    if (name == "subject") return 2;
    if (name == "date") return 3;
    return -1;
}

bool ParseColumn(const std::string& text, int& column) {
    if (text.size() != 1 || text[0] < '0' || text[0] > '6') return false;
    column = text[0] - '0';
    return true;
}

double MillisecondsSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

constexpr std::size_t flushAt = 1 << 16;

void Flush(std::string& out) {
    std::fwrite(out.data(), 1, out.size(), stdout);
    out.clear();
}

void AppendField(std::string& out, std::string_view field, TEscape mode) {
    while (!field.empty()) {
        const std::size_t piece = std::min(field.size(), flushAt);
        AppendEscaped(out, field.substr(0, piece), mode);
        field.remove_prefix(piece);
        if (out.size() >= flushAt) Flush(out);
    }
}

} // namespace

bool TakeMailboxOption(const std::vector<std::string>& args, std::size_t& i,
                       TMailboxOptions& options, bool& haveFolder) {
    const std::string& arg = args[i];
    if (arg == "--filter" && i + 2 < args.size()) {
        options.filterType = ParseFilterType(args[i + 1]);
        options.filterText = args[i + 2];
        i += 2;
        return options.filterType >= 0;
    }
    if (arg == "--click" && i + 1 < args.size()) {
        int column = 0;
        if (!ParseColumn(args[++i], column)) return false;
        options.clicks.push_back(column);
        return true;
    }
    if (arg == "--timings") {
        options.timings = true;
        return true;
    }
    if (haveFolder || (!arg.empty() && arg[0] == '-')) return false;
    options.folder = arg;
    haveFolder = true;
    return true;
}

void OpenMailbox(TInboxFrm& inbox, const TMailboxOptions& options) {
    // What the window's activation does with the hand-off file's mailbox.
    inbox.MailboxFolder = AnsiString(options.folder);
    inbox.MailboxName = Utils->FileStem(inbox.MailboxFolder);
    inbox.FromFilterTexts.SetSorted(true);
    inbox.SubjectFilterTexts.SetSorted(true);
    inbox.DateFilterTexts.SetSorted(true);
    inbox.LMDcbFilterType.SetItemIndex(0);
    inbox.SetReady(false);
    auto start = std::chrono::steady_clock::now();
    inbox.ScanMessages();
    Utils->SortColumn = 2;
    inbox.lvEmailList.SetSortType(TSortType::stText);
    inbox.SetReady(true);
    if (options.timings) std::fprintf(stderr, "scan and sort: %.1f ms\n", MillisecondsSince(start));

    if (options.filterType > 0) {
        inbox.LMDcbFilterType.UserPick(options.filterType);
        inbox.LMDcbFilterText.UserType(AnsiString(options.filterText));
        inbox.LMDpfRefresh.Click();
    }
    for (const int column : options.clicks) {
        start = std::chrono::steady_clock::now();
        inbox.lvEmailList.ColumnClick(column);
        if (options.timings)
            std::fprintf(stderr, "click on column %d: %.1f ms\n", column, MillisecondsSince(start));
    }
}

TEscape StandardOutputEscape() {
    return ::isatty(STDOUT_FILENO) ? TEscape::Controls : TEscape::Documented;
}

void PrintRows(const TListView& list) {
    const TEscape mode = StandardOutputEscape();
    std::string out;
    out.reserve(2 * flushAt);
    for (int i = 0; i < list.Count(); ++i) {
        const TListItem& row = list.Item(i);
        AppendField(out, row.Caption.view(), mode);
        for (const AnsiString& field : row.SubItems) {
            out += '\t';
            AppendField(out, field.view(), mode);
        }
        out += '\n';
        if (out.size() >= flushAt) Flush(out);
    }
    Flush(out);
}
