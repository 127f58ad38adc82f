#pragma once
// The line form of a session script: one command a line, arguments apart by
// blanks, "#" at the start of a line for a comment. An argument with blanks
// or special bytes stands in double quotes, with the escapes \\ \" \t \r \n
// and \xHH.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct TScriptCommand {
    int Line = 0;
    std::vector<std::string> Words; // Words[0] is the command
};

struct TScriptError {
    int Line = 0;
    std::string Reason;
};

// The words of one line; empty for a blank or comment line. A malformed
// quote gives an error text instead.
std::optional<std::vector<std::string>> SplitScriptLine(std::string_view line, std::string& error);

// All commands of a script text, or the first error.
bool ParseScript(std::string_view text, std::vector<TScriptCommand>& commands, TScriptError& error);
