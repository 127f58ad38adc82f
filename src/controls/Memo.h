#pragma once
// A multi-line memo: its text as a list of lines.

#include <functional>

#include "controls/Control.h"
#include "foundation/StringList.h"

class TMemo : public TControl {
public:
    using TControl::TControl;

    const TStringList& Lines() const { return lines; }
    // Code that changes the lines calls LinesChanged afterwards, so the screen follows.
    TStringList& Lines() { return lines; }
    void LinesChanged() { Changed(TChange::Rows); }

    // The lines joined with CR LF, each line ended, as the list class gives its text.
    AnsiString Text() const { return lines.GetText(); }
    void SetText(std::string_view text);

    // A person's whole text, split into lines at LF or CR LF; then OnChange.
    void UserType(std::string_view text);
    std::function<void()> OnChange;

private:
    TStringList lines;
};
