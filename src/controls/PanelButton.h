#pragma once
// A panel that acts as a button: a caption, a bevel with an inner and an outer
// style, a cursor, a help context, and a click event. The pressed look is the
// bevel itself; the busy state is the cursor.

#include <functional>

#include "controls/Panel.h"

enum TBevelCut { bvNone = 0, bvLowered = 1, bvRaised = 2 };

class TPanelButton : public TPanel {
public:
    using TPanel::TPanel;

    TBevelCut BevelInner() const { return bevelInner; }
    TBevelCut BevelOuter() const { return bevelOuter; }
    void SetBevels(TBevelCut inner, TBevelCut outer);

    // What a click on the panel runs (the window's handler).
    std::function<void()> OnClick;
    void Click() {
        if (OnClick && Enabled()) OnClick();
    }

private:
    TBevelCut bevelInner = bvRaised;
    TBevelCut bevelOuter = bvRaised;
};
