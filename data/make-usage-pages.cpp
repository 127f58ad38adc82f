// Makes the commands part of vellumdesk-cli's manual page and of its bash
// completion from the program's usage table, so that neither can miss a
// command or an option.
//
//   make-usage-pages man|bash TEMPLATE OUT
//
// Every @NAME@ of the template is replaced by what the table gives for it.

#include <cstdio>
#include <fstream>
#include <map>
#include <sstream>
#include <string>

#include "cli/CliUsage.h"
#include "cli/CliUsageText.h"

namespace {

// Text as troff shows it: a backslash and a minus as themselves, and a line
// that would start with a control character kept as text.
std::string Troff(std::string_view text) {
    std::string out = text.starts_with('.') || text.starts_with('\'') ? "\\&" : "";
    for (const char c : text) {
        if (c == '\\')
            out += "\\e";
        else if (c == '-')
            out += "\\-";
        else
            out += c;
    }
    return out;
}

std::string ManCommands() {
    std::string out;
    for (const TCliUsage& usage : CliUsageTable::commands) {
        out += ".TP\n.B \"" + Troff(CliSynopsis(usage)) + "\"\n" + Troff(usage.Text) + '\n';
        if (usage.Options.empty()) continue;
        out += ".RS\n";
        for (const TCliOption& option : usage.Options)
            out += ".TP\n.B \"" + Troff(CliOptionSynopsis(option)) + "\"\n" + Troff(option.Text) +
                   '\n';
        out += ".RE\n";
    }
    out.pop_back();
    return out;
}

std::map<std::string, std::string> BashParts() {
    std::string commands, options, values;
    for (const TCliUsage& usage : CliUsageTable::commands) {
        if (!commands.empty()) commands += ' ';
        commands += usage.Name;
        std::string names;
        for (const TCliOption& option : usage.Options) {
            if (!names.empty()) names += ' ';
            names += option.Name;
            if (!option.Values.empty())
                values += "    '" + std::string(usage.Name) + ' ' + std::string(option.Name) +
                          "') echo '" + std::string(option.Values) + "' ;;\n";
        }
        if (!names.empty())
            options += "    " + std::string(usage.Name) + ") echo '" + names + "' ;;\n";
    }
    options.pop_back();
    values.pop_back();
    return {{"@COMMANDS@", commands}, {"@OPTIONS@", options}, {"@VALUES@", values}};
}

std::string ReplaceAll(std::string text, const std::map<std::string, std::string>& parts) {
    for (const auto& [name, value] : parts)
        for (std::size_t at = text.find(name); at != std::string::npos;
             at = text.find(name, at + value.size()))
            text.replace(at, name.size(), value);
    return text;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: make-usage-pages man|bash TEMPLATE OUT\n");
        return 2;
    }
    const std::string kind = argv[1];
    std::ifstream in(argv[2]);
    std::stringstream text;
    text << in.rdbuf();
    if (!in || (kind != "man" && kind != "bash")) {
        std::fprintf(stderr, "make-usage-pages: cannot read %s as %s\n", argv[2], argv[1]);
        return 1;
    }
    const auto parts = kind == "man"
                           ? std::map<std::string, std::string>{{"@COMMANDS@", ManCommands()}}
                           : BashParts();
    std::ofstream out(argv[3], std::ios::binary);
    out << ReplaceAll(text.str(), parts);
    return out.flush() ? 0 : 1;
}
