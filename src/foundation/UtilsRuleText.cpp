// TUtils: the one-line form of a rule.

#include <algorithm>

#include "foundation/Utils.h"

// Every line end of the list's text becomes the field separator: the CR
// goes, the LF turns into "|", so each field ends in "|", the last one too.
// Every CR goes, however many a field holds: one left behind would end the
// rule's line early when the file is read again.
AnsiString TUtils::FlattenRuleText(const AnsiString& text) const {
    std::string line = text.str();
    std::erase(line, '\r');
    std::replace(line.begin(), line.end(), '\n', '|');
    return AnsiString(std::move(line));
}
