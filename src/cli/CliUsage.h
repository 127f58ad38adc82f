#pragma once
// What vellumdesk-cli says about its commands: one entry per command with its
// operands, options and a line of explanation. --help and `help COMMAND`, the
// check of a command's options before it runs, the manual page and the shell
// completion are all made from this table, so a new command is one entry here
// plus its TCliCommand.

#include <span>
#include <string_view>

struct TCliOption {
    std::string_view Name;     // "--filter"
    std::string_view Operands; // what follows it, as the usage shows it; empty for a switch
    int Arguments;             // how many words follow it
    bool Repeats;
    std::string_view Values; // the words a shell may complete its first operand with
    std::string_view Text;
};

struct TCliUsage {
    std::string_view Name;
    std::string_view Operands; // what comes before the options
    std::span<const TCliOption> Options;
    std::string_view Text;
};

namespace CliUsageTable {

inline constexpr TCliOption filter{
    "--filter",
    "from|subject|date TEXT",
    2,
    false,
    "from subject date",
    "List only the rows whose From, Subject or Arrival Date contains TEXT, as the "
    "window's filter does."};
inline constexpr TCliOption click{
    "--click",
    "COLUMN",
    1,
    true,
    "0 1 2 3 4 5 6",
    "Click the heading of a column before printing: 0 From, 1 Subject, 2 Arrival Date, "
    "3 Size, 4 Attachments, 5 Content-Type, 6 File Name. A second click on the same "
    "column turns the order around."};

inline constexpr TCliOption listOptions[] = {
    filter,
    click,
    {"--timings", "", 0, false, "",
     "Say on standard error how long the scan with its first sort and each click took."},
};

inline constexpr TCliOption searchOptions[] = {
    {"--case", "", 0, false, "", "Match upper and lower case exactly."},
    {"--whole-word", "", 0, false, "", "Match TEXT only as a whole word."},
    {"--where", "listed|current|all", 1, false, "listed current all",
     "Search the listed messages, the whole current mailbox, or every mailbox."},
    filter,
    click,
    {"--hits", "", 0, false, "", "Print the hits the search collected instead of the rows."},
};

inline constexpr TCliOption openOptions[] = {
    {"--client", "NAME", 1, false, "",
     "The display name of the mail client to use; without it, the client chosen in "
     "Config.cfg."},
};

inline constexpr TCliOption programOptions[] = {
    {"--program", "PATH", 1, false, "",
     "Run as the desktop program at PATH would: with the hand-off file, log, help texts "
     "and extensions beside PATH instead of beside the vellumdesk next to this program."},
};

inline constexpr TCliUsage commands[] = {
    {"list", "FOLDER", listOptions,
     "Print the rows of a mailbox folder as the window lists them, one tab-separated line "
     "per message, and the status text on standard error."},
    {"search", "FOLDER TEXT", searchOptions,
     "Search the messages for TEXT as the search window does and print the result rows. "
     "When nothing matches, \"Text not found!\" goes to standard error and the exit "
     "status is 1."},
    {"clients",
     "",
     {},
     "Print the mail clients the desktop offers, one \"display name=desktop id\" line "
     "each."},
    {"open", "FILE", openOptions,
     "Open a message file in a mail client, as Run Mail does, and return without "
     "waiting for the client."},
    {"plugins", "", programOptions,
     "Print the four plug-in lists the program builds at start, one LIST<TAB>TEXT line "
     "per entry."},
    {"script", "FILE|-", programOptions,
     "Run one session of the desktop program from a script (- reads standard input) and "
     "print, tab-separated, what the session shows and starts."},
    {"make-config",
     "DESCRIPTION OUT",
     {},
     "Write a Config.cfg to OUT from a description of name=value lines."},
    {"make-sound",
     "FILE MS HZ [HZ...]",
     {},
     "Write a short chime to FILE as a WAV file: each pitch HZ sounds for MS milliseconds."},
    {"help", "[COMMAND]", {}, "Print the usage of every command, or of COMMAND."},
};

} // namespace CliUsageTable

// The entry of a command; nullptr for a name the table does not hold.
constexpr const TCliUsage* FindCliUsage(std::string_view name) {
    for (const TCliUsage& usage : CliUsageTable::commands)
        if (usage.Name == name) return &usage;
    return nullptr;
}

// The option of a command; nullptr for one the command does not take.
constexpr const TCliOption* FindCliOption(const TCliUsage& usage, std::string_view name) {
    for (const TCliOption& option : usage.Options)
        if (option.Name == name) return &option;
    return nullptr;
}
