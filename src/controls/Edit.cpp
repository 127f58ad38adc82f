#include "controls/Edit.h"

void TEdit::UserType(const AnsiString& value) {
    if (!EnabledWithParents()) return;
    SetText(value);
    if (OnChange) OnChange();
}
