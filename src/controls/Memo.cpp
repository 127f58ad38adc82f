#include "controls/Memo.h"

void TMemo::SetText(std::string_view text) {
    lines.SetText(text);
    Changed(TChange::Rows);
}

void TMemo::UserType(std::string_view text) {
    if (!EnabledWithParents()) return;
    SetText(text);
    if (OnChange) OnChange();
}
