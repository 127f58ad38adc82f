#include "controls/PanelButton.h"

void TPanelButton::SetBevels(TBevelCut inner, TBevelCut outer) {
    if (bevelInner == inner && bevelOuter == outer) return;
    bevelInner = inner;
    bevelOuter = outer;
    Changed(TChange::Properties);
}
