// vellumdesk-cli list: the rows the window shows for a folder, one line each.

#include <cstdio>
#include <string>

#include "cli/CliCommand.h"
#include "cli/CliHelp.h"
#include "cli/CliPaths.h"
#include "cli/CliSession.h"
#include "cli/MailboxSession.h"
#include "inbox/InboxForm.h"

namespace {

bool ParseOptions(const std::vector<std::string>& args, TMailboxOptions& options) {
    bool haveFolder = false;
    for (std::size_t i = 0; i < args.size(); ++i)
        if (!TakeMailboxOption(args, i, options, haveFolder)) return false;
    return haveFolder;
}

int RunList(const std::vector<std::string>& args) {
    TMailboxOptions options;
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
    OpenMailbox(inbox, options);
    PrintRows(inbox.lvEmailList);
    std::fflush(stdout);
    std::fprintf(stderr, "%s\n", inbox.LMDpfStatusBar.Caption().c_str());
    return 0;
}

const TCliCommand listCommand("list", RunList);

} // namespace
