#include "controls/PageControl.h"

void TPageControl::AddPage(TTabSheet& sheet) {
    pages.push_back(&sheet);
    sheet.SetParent(this);
    if (activePage < 0) activePage = 0;
    Changed(TChange::Rows);
}

void TPageControl::SetActivePageIndex(int index) {
    if (index < 0 || index >= PageCount() || index == activePage) return;
    activePage = index;
    Changed(TChange::Selection);
}

void TPageControl::UserPick(int index) {
    if (!EnabledWithParents()) return;
    SetActivePageIndex(index);
    if (OnChange) OnChange();
}

void TPageControl::SetTabWidth(int value) {
    if (tabWidth == value) return;
    tabWidth = value;
    Changed(TChange::Properties);
}
