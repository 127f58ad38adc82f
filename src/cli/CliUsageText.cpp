#include "cli/CliUsageText.h"

std::string CliOptionSynopsis(const TCliOption& option) {
    std::string text(option.Name);
    if (!option.Operands.empty()) (text += ' ') += option.Operands;
    return text;
}

std::string CliSynopsis(const TCliUsage& usage) {
    std::string text(usage.Name);
    if (!usage.Operands.empty()) (text += ' ') += usage.Operands;
    for (const TCliOption& option : usage.Options) {
        text += " [" + CliOptionSynopsis(option) + ']';
        if (option.Repeats) text += "...";
    }
    return text;
}

std::string WrapText(std::string_view text, std::size_t indent, std::size_t width) {
    std::string out;
    std::size_t lineLength = 0;
    while (!text.empty()) {
        const std::size_t start = text.find_first_not_of(' ');
        if (start == std::string_view::npos) break;
        text.remove_prefix(start);
        const std::string_view word = text.substr(0, text.find(' '));
        text.remove_prefix(word.size());
        if (lineLength > 0 && lineLength + 1 + word.size() > width) {
            out += '\n';
            lineLength = 0;
        }
        if (lineLength == 0) {
            out.append(indent, ' ');
            lineLength = indent;
        } else {
            out += ' ';
            ++lineLength;
        }
        out += word;
        lineLength += word.size();
    }
    if (lineLength > 0) out += '\n';
    return out;
}
