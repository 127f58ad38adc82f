// TUtils: the one-line form of a rule.

#include "foundation/Utils.h"

// Every line end of the list's text becomes the field separator: the CR
// goes, the LF turns into "|", so each field ends in "|", the last one too.
AnsiString TUtils::FlattenRuleText(const AnsiString& text) const {
    AnsiString line = text;
    for (;;) {
        if (const int cr = line.Pos("\r"); cr > 0) line.Delete(cr, 1);
        const int lf = line.Pos("\n");
        if (lf == 0) break;
        line[lf] = '|';
    }
    return line;
}
