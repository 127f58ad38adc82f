#pragma once
// One field of a printed line: a backslash is written "\\", a tab "\t", a CR
// "\r" and an LF "\n"; all other bytes stand as they are. The list command
// and scripted sessions print every value this way.

#include <string>
#include <string_view>

inline void AppendEscaped(std::string& out, std::string_view field) {
    for (const char c : field) {
        switch (c) {
        case '\\':
            out += "\\\\";
            break;
        case '\t':
            out += "\\t";
            break;
        case '\r':
            out += "\\r";
            break;
        case '\n':
            out += "\\n";
            break;
        default:
            out += c;
        }
    }
}

inline std::string Escaped(std::string_view field) {
    std::string out;
    AppendEscaped(out, field);
    return out;
}
