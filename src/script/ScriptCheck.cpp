#include "script/ScriptCheck.h"

#include <string>

#include "script/ControlScript.h"

namespace {

struct TShape {
    const char* name;
    std::size_t minWords, maxWords;
};

// The commands that are not window commands, with their word counts.
constexpr TShape shapes[] = {
    {"answer", 2, 2}, {"handoff", 2, 3}, {"start", 1, 1}, {"show", 2, 2}, {"quit", 1, 1},
};

bool HasShape(const std::vector<std::string>& words) {
    if (IsWindowCommand(words[0])) return words.size() >= 2;
    for (const TShape& shape : shapes)
        if (words[0] == shape.name)
            return words.size() >= shape.minWords && words.size() <= shape.maxWords;
    return false;
}

std::optional<std::string> CheckOrder(const std::string& command, bool started) {
    if (command == "start" && started) return "the program has started already";
    if (command == "handoff" && started) return "handoff comes before start";
    const bool needsProgram = command == "show" || command == "quit" || IsWindowCommand(command);
    if (needsProgram && !started) return "'" + command + "' needs a running program: start first";
    return std::nullopt;
}

} // namespace

std::optional<TScriptError> CheckScript(const std::vector<TScriptCommand>& commands) {
    bool started = false, quit = false;
    for (const TScriptCommand& command : commands) {
        const std::string& name = command.Words[0];
        if (!HasShape(command.Words))
            return TScriptError{command.Line,
                                "unknown command '" + name + "' or wrong number of arguments"};
        if (quit) return TScriptError{command.Line, "'" + name + "' comes after quit"};
        if (auto error = CheckOrder(name, started)) return TScriptError{command.Line, *error};
        started = started || name == "start";
        quit = name == "quit";
    }
    return std::nullopt;
}
