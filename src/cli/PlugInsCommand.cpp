// vellumdesk-cli plugins: the extension and plug-in lists as the program
// holds them once it has started, one "LIST<TAB>TEXT" line per list line.

#include <cstdio>
#include <string>

#include "cli/CliCommand.h"
#include "cli/CliHelp.h"
#include "cli/CliSession.h"
#include "plugins/PlugIns.h"
#include "script/FieldEscape.h"
#include "settings/Globals.h"

namespace {

void PrintList(const char* name, const TStringList& list) {
    std::string out;
    for (const AnsiString& line : list) {
        out.append(name).append("\t");
        AppendEscaped(out, line.view());
        out += '\n';
    }
    std::fwrite(out.data(), 1, out.size(), stdout);
}

int RunPlugIns(const std::vector<std::string>& arguments) {
    std::vector<std::string> args = arguments;
    AnsiString program;
    if (!TakeProgramOption(args, program) || !args.empty()) return CliUsageError("plugins");
    TCliSession session;
    session.App().ExeName = program;
    TGlobals globals;
    Globals = &globals;
    globals.InitFolders(); // what the start of the program does
    PrintList("ExtensionList", *PlugIns->ExtensionList);
    PrintList("ExtensionIds", globals.ExtensionIds);
    PrintList("PlugInList", *PlugIns->PlugInList);
    PrintList("PlugInIds", globals.PlugInIds);
    std::fflush(stdout);
    Globals = nullptr;
    return 0;
}

const TCliCommand plugInsCommand("plugins", RunPlugIns);

} // namespace
