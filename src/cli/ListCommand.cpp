// vellumdesk-cli list: the rows the window shows for a folder, one line each.

#include <cstdio>
#include <string>
#include <unistd.h>

#include "cli/CliCommand.h"
#include "cli/CliHelp.h"
#include "cli/CliPaths.h"
#include "cli/CliSession.h"
#include "inbox/InboxForm.h"
#include "script/FieldEscape.h"

namespace {

struct TListOptions {
    std::string folder;
    int filterType = 0;
    std::string filterText;
    std::vector<int> clicks;
};

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

bool ParseOptions(const std::vector<std::string>& args, TListOptions& options) {
    bool haveFolder = false;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (arg == "--filter" && i + 2 < args.size()) {
            options.filterType = ParseFilterType(args[i + 1]);
            options.filterText = args[i + 2];
            if (options.filterType < 0) return false;
            i += 2;
        } else if (arg == "--click" && i + 1 < args.size()) {
            int column = 0;
            if (!ParseColumn(args[++i], column)) return false;
            options.clicks.push_back(column);
        } else if (!haveFolder && (arg.empty() || arg[0] != '-')) {
            options.folder = arg;
            haveFolder = true;
        } else {
            return false;
        }
    }
    return haveFolder;
}

void PrintRows(const TListView& list) {
    // A terminal gets no control byte of a header: none can steer it.
    const TEscape mode = ::isatty(STDOUT_FILENO) ? TEscape::Controls : TEscape::Documented;
    std::string out;
    out.reserve(1 << 16);
    for (int i = 0; i < list.Count(); ++i) {
        const TListItem& row = list.Item(i);
        AppendEscaped(out, row.Caption.view(), mode);
        for (const AnsiString& field : row.SubItems) {
            out += '\t';
            AppendEscaped(out, field.view(), mode);
        }
        out += '\n';
        if (out.size() > (1 << 16) - 4096) {
            std::fwrite(out.data(), 1, out.size(), stdout);
            out.clear();
        }
    }
    std::fwrite(out.data(), 1, out.size(), stdout);
}

int RunList(const std::vector<std::string>& args) {
    TListOptions options;
    if (!ParseOptions(args, options)) {
        return CliUsageError("list");
    }
    std::string problem;
    if (!AbsoluteFolder(options.folder, problem)) {
        std::fprintf(stderr, "list: %s\n", problem.c_str());
        return 1;
    }
    TCliSession session;
    TInboxFrm inbox;
    // What the window's activation does with the hand-off file's mailbox.
    inbox.MailboxFolder = AnsiString(options.folder);
    inbox.MailboxName = Utils->FileStem(inbox.MailboxFolder);
    inbox.FromFilterTexts.SetSorted(true);
    inbox.SubjectFilterTexts.SetSorted(true);
    inbox.DateFilterTexts.SetSorted(true);
    inbox.LMDcbFilterType.SetItemIndex(0);
    inbox.SetReady(false);
    inbox.ScanMessages();
    Utils->SortColumn = 2;
    inbox.lvEmailList.SetSortType(TSortType::stText);
    inbox.SetReady(true);

    if (options.filterType > 0) {
        inbox.LMDcbFilterType.UserPick(options.filterType);
        inbox.LMDcbFilterText.UserType(AnsiString(options.filterText));
        inbox.LMDpfRefresh.Click();
    }
    for (const int column : options.clicks)
        inbox.lvEmailList.ColumnClick(column);

    PrintRows(inbox.lvEmailList);
    std::fflush(stdout);
    std::fprintf(stderr, "%s\n", inbox.LMDpfStatusBar.Caption().c_str());
    return 0;
}

const TCliCommand listCommand("list", RunList);

} // namespace
