// vellumdesk-cli search: the text search of the Find Text window on a
// mailbox, printing the result rows (or the hits) one line each.

#include <cstdio>
#include <string>

#include "cli/CliCommand.h"
#include "cli/CliPaths.h"
#include "cli/CliSession.h"
#include "cli/MailboxSession.h"
#include "foundation/Utils.h"
#include "inbox/InboxForm.h"
#include "script/FieldEscape.h"
#include "search/MailSearch.h"
#include "settings/Globals.h"

namespace {

struct TSearchOptions {
    TMailboxOptions mailbox;
    std::string text;
    bool caseSensitive = false;
    bool wholeWord = false;
    int where = 0; // the window's own start: Listed Messages
    bool hits = false;
};

int ParseWhere(const std::string& name) {
    if (name == "listed") return 0;
    if (name == "current") return 1;
    if (name == "all") return 2;
    return -1;
}

bool ParseOptions(const std::vector<std::string>& args, TSearchOptions& options) {
    bool haveFolder = false, haveText = false;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (arg == "--case") {
            options.caseSensitive = true;
        } else if (arg == "--whole-word") {
            options.wholeWord = true;
        } else if (arg == "--hits") {
            options.hits = true;
        } else if (arg == "--where" && i + 1 < args.size()) {
            options.where = ParseWhere(args[++i]);
            if (options.where < 0) return false;
        } else if (haveFolder && !haveText &&
                   (arg.empty() || arg[0] != '-' || arg.size() == 1 || arg[1] != '-')) {
            options.text = arg;
            haveText = true;
        } else if (!TakeMailboxOption(args, i, options.mailbox, haveFolder)) {
            return false;
        }
    }
    return haveFolder && haveText;
}

// Written as they come, in 64 KiB pieces: a common word has hundreds of
// thousands of hits, which need not be held. Returns how many there were.
std::size_t PrintHits(const TInboxFrm& inbox, const TSearchOptions& options) {
    constexpr std::size_t piece = 1 << 16;
    std::string out;
    out.reserve(2 * piece);
    std::size_t count = 0;
    const TEscape mode = StandardOutputEscape();
    inbox.EmitSearchHits(AnsiString(options.text), options.caseSensitive, options.wholeWord,
                         static_cast<unsigned short>(options.where), [&](std::string_view hit) {
                             ++count;
                             AppendEscaped(out, hit, mode);
                             out += '\n';
                             if (out.size() < piece) return;
                             std::fwrite(out.data(), 1, out.size(), stdout);
                             out.clear();
                         });
    std::fwrite(out.data(), 1, out.size(), stdout);
    return count;
}

int RunSearch(const std::vector<std::string>& args) {
    TSearchOptions options;
    if (!ParseOptions(args, options)) {
        std::fprintf(stderr, "usage: vellumdesk-cli search FOLDER TEXT [--case] [--whole-word] "
                             "[--where listed|current|all] [--filter from|subject|date TEXT] "
                             "[--click COLUMN]... [--hits]\n");
        return 2;
    }
    std::string problem;
    if (!AbsoluteFolder(options.mailbox.folder, problem)) {
        std::fprintf(stderr, "search: %s\n", problem.c_str());
        return 1;
    }
    TCliSession session;
    TInboxFrm inbox;
    TfrmMailSearch window;
    const TMailSearchGlobal global(window);
    // The mailbox list, as the activation reads it.
    Globals->InitFolders();
    try {
        inbox.Mailboxes.LoadFromFile(Utils->AddBackslash(Globals->DataFolder) + "IconMailbox.ini");
    } catch (const Exception&) {
    }
    // Only the listed scope reads the list; the others search the folders and
    // are spared the scan.
    if (options.where == 0)
        OpenMailbox(inbox, options.mailbox);
    else
        inbox.MailboxFolder = AnsiString(options.mailbox.folder);
    window.OnSearch = [&inbox](AnsiString text, bool caseSensitive, bool wholeWord,
                               unsigned short where) {
        return inbox.SearchMessages(std::move(text), caseSensitive, wholeWord, where);
    };
    window.LMDcbSearchStr.SetText(AnsiString(options.text));
    window.LMDcbxCaseSense.SetChecked(options.caseSensitive);
    window.LMDcbxWholeWord.SetChecked(options.wholeWord);
    window.LMDrgWhere.SetItemIndex(options.where);
    bool found = false;
    if (options.hits) {
        // The search of Begin, up to the hits; the rows are not wanted.
        found = PrintHits(inbox, options) > 0;
    } else {
        window.LMDpfBeginClick();
        PrintRows(window.lvSrchResult);
        found = window.SearchHits.Count() > 0;
    }
    std::fflush(stdout);
    if (found) return 0;
    std::fprintf(stderr, "Text not found!\n");
    return 1;
}

const TCliCommand searchCommand("search",
                                "FOLDER TEXT [--case] [--whole-word] [--where listed|current|all] "
                                "[--filter from|subject|date TEXT] [--click COLUMN]... [--hits]",
                                RunSearch);

} // namespace
