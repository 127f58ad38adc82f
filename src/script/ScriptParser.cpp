#include "script/ScriptParser.h"

namespace {

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

// Reads a quoted argument that begins at line[i] == '"'; leaves i behind the closing quote.
bool ReadQuoted(std::string_view line, std::size_t& i, std::string& word, std::string& error) {
    for (++i; i < line.size(); ++i) {
        const char c = line[i];
        if (c == '"') {
            ++i;
            if (i < line.size() && !IsBlank(line[i])) {
                error = "text after a closing quote";
                return false;
            }
            return true;
        }
        if (c != '\\') {
            word += c;
            continue;
        }
        if (++i >= line.size()) break;
        switch (line[i]) {
        case '\\':
            word += '\\';
            break;
        case '"':
            word += '"';
            break;
        case 't':
            word += '\t';
            break;
        case 'r':
            word += '\r';
            break;
        case 'n':
            word += '\n';
            break;
        case 'x': {
            const int hi = i + 1 < line.size() ? HexDigit(line[i + 1]) : -1;
            const int lo = i + 2 < line.size() ? HexDigit(line[i + 2]) : -1;
            if (hi < 0 || lo < 0) {
                error = "\\x needs two hex digits";
                return false;
            }
            word += static_cast<char>(hi * 16 + lo);
            i += 2;
            break;
        }
        default:
            error = std::string("unknown escape \\") + line[i];
            return false;
        }
    }
    error = "missing closing quote";
    return false;
}

} // namespace

std::optional<std::vector<std::string>> SplitScriptLine(std::string_view line, std::string& error) {
    std::vector<std::string> words;
    std::size_t i = 0;
    while (i < line.size() && IsBlank(line[i]))
        ++i;
    if (i < line.size() && line[i] == '#') return words;
    while (i < line.size()) {
        if (IsBlank(line[i])) {
            ++i;
            continue;
        }
        std::string word;
        if (line[i] == '"') {
            if (!ReadQuoted(line, i, word, error)) return std::nullopt;
        } else {
            while (i < line.size() && !IsBlank(line[i]))
                word += line[i++];
        }
        words.push_back(std::move(word));
    }
    return words;
}

bool ParseScript(std::string_view text, std::vector<TScriptCommand>& commands,
                 TScriptError& error) {
    int lineNumber = 0;
    bool ok = true;
    // Lines end in LF or CR LF; every line counts for the numbers in error reports.
    std::size_t start = 0;
    while (ok && start <= text.size()) {
        const std::size_t end = text.find('\n', start);
        std::string_view line =
            text.substr(start, end == std::string_view::npos ? end : end - start);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        ++lineNumber;
        std::string reason;
        const auto words = SplitScriptLine(line, reason);
        if (!words) {
            error = {lineNumber, reason};
            ok = false;
        } else if (!words->empty()) {
            commands.push_back({lineNumber, *words});
        }
        if (end == std::string_view::npos) break;
        start = end + 1;
    }
    return ok;
}
