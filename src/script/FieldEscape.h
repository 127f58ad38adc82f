#pragma once
// One field of a printed line: a backslash is written "\\", a tab "\t", a CR
// "\r" and an LF "\n"; all other bytes stand as they are. The list command
// and scripted sessions print every value this way. For a terminal, and in
// every error text, the other control bytes (ESC, BEL, NUL, DEL, ...) are
// written "\xHH" as well, so no value can steer the terminal.

#include <string>
#include <string_view>

enum class TEscape { Documented, Controls };

inline void AppendEscaped(std::string& out, std::string_view field,
                          TEscape mode = TEscape::Documented) {
    static constexpr char hex[] = "0123456789ABCDEF";
    for (const char c : field) {
        const auto byte = static_cast<unsigned char>(c);
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
            if (mode == TEscape::Controls && (byte < 0x20 || byte == 0x7F)) {
                out += "\\x";
                out += hex[byte >> 4];
                out += hex[byte & 15];
            } else {
                out += c;
            }
        }
    }
}

inline std::string Escaped(std::string_view field, TEscape mode = TEscape::Documented) {
    std::string out;
    AppendEscaped(out, field, mode);
    return out;
}
