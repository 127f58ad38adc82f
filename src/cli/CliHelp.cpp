#include "cli/CliHelp.h"

#include "cli/CliCommand.h"
#include "cli/CliUsageText.h"

namespace {

constexpr std::string_view program = "vellumdesk-cli";

void Put(std::FILE* to, std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), to);
}

// The synopsis of a command of this program: from the table, or the one the
// command brought along when the table does not hold it.
std::string SynopsisOf(const TCliCommand& command) {
    if (const TCliUsage* usage = FindCliUsage(command.Name)) return CliSynopsis(*usage);
    std::string text = command.Name;
    if (*command.Usage) (text += ' ') += command.Usage;
    return text;
}

} // namespace

void PrintCliUsage(std::FILE* to) {
    std::string text = "usage: " + std::string(program) + " COMMAND [ARG...]\n       " +
                       std::string(program) + " --help | --version\n\nCommands:\n";
    // The table's order first; a command the table does not hold comes last.
    for (const TCliUsage& usage : CliUsageTable::commands)
        if (FindCliCommand(usage.Name))
            text += "  " + CliSynopsis(usage) + '\n' + WrapText(usage.Text, 6);
    for (const TCliCommand* command : CliCommands())
        if (!FindCliUsage(command->Name)) text += "  " + SynopsisOf(*command) + '\n';
    text += "\nRun '" + std::string(program) + " help COMMAND' for the options of a command.\n";
    Put(to, text);
}

void PrintCommandUsage(std::FILE* to, const TCliUsage& usage) {
    std::string text = "usage: " + std::string(program) + ' ' + CliSynopsis(usage) + "\n\n" +
                       WrapText(usage.Text, 0);
    if (!usage.Options.empty()) text += "\nOptions:\n";
    for (const TCliOption& option : usage.Options)
        text += "  " + CliOptionSynopsis(option) + '\n' + WrapText(option.Text, 6);
    Put(to, text);
}

int CliUsageError(std::string_view name) {
    const TCliCommand* command = FindCliCommand(name);
    if (!command) {
        PrintCliUsage(stderr);
        return 2;
    }
    Put(stderr, "usage: " + std::string(program) + ' ' + SynopsisOf(*command) + '\n');
    return 2;
}

int CheckCliOptions(const TCliUsage& usage, const std::vector<std::string>& args) {
    const std::string prefix = std::string(program) + ' ' + std::string(usage.Name) + ": ";
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (arg == "--help" || arg == "-h") {
            PrintCommandUsage(stdout, usage);
            return 0;
        }
        // "-" alone is an operand: standard input.
        if (arg.size() < 2 || arg[0] != '-') continue;
        const TCliOption* option = FindCliOption(usage, arg);
        if (!option) {
            Put(stderr, prefix + "unknown option '" + arg + "'\n");
            return CliUsageError(usage.Name);
        }
        if (args.size() - i - 1 < static_cast<std::size_t>(option->Arguments)) {
            Put(stderr,
                prefix + "option '" + arg + "' needs " + std::string(option->Operands) + '\n');
            return CliUsageError(usage.Name);
        }
        i += static_cast<std::size_t>(option->Arguments);
    }
    return -1;
}
