#include "settings/PanelButtons.h"

#include "controls/PanelButton.h"
#include "controls/PopupMenu.h"
#include "platform/Application.h"
#include "settings/Globals.h"

TPButtons* PButtons = nullptr;

namespace {

void RunMessageLoopOnce() {
    if (Application) Application->ProcessMessages();
}

} // namespace

bool TPButtons::HelpTest(TPanelButton& button) {
    if (!HelpMode) return false;
    HelpMode = false;
    if (button.HelpContext() > 0) {
        if (Globals) Globals->ShowContextHelp(button.HelpContext());
    } else if (!button.HelpKeyword().IsEmpty() && Application) {
        Application->HelpKeyword(button.HelpKeyword());
    }
    return true;
}

bool TPButtons::Refused(const TPanelButton& button) {
    const TCursor cursor = button.Cursor();
    return cursor == crHourGlass || cursor == crNo ||
           (Application && Application->ScreenCursor == crHourGlass);
}

bool TPButtons::ButtonPress(TPanelButton& button) {
    if (HelpTest(button) || Refused(button)) return false;
    button.SetBevels(bvLowered, bvLowered);
    RunMessageLoopOnce();
    return true;
}

bool TPButtons::ButtonRelease(TPanelButton& button) {
    if (HelpTest(button)) return false;
    button.SetBevels(bvRaised, bvRaised);
    RunMessageLoopOnce();
    return false;
}

bool TPButtons::MenuButtonPress(TPanelButton& button, TPopupMenu* popup) {
    if (HelpTest(button) || Refused(button)) return false;
    button.SetBevels(bvLowered, bvLowered);
    if (popup) popup->Popup(button.ClientToScreen({0, button.Height()}));
    RunMessageLoopOnce();
    return true;
}

bool TPButtons::MenuButtonRelease(TPanelButton& button) {
    if (HelpTest(button)) return false;
    button.SetBevels(bvRaised, bvLowered);
    RunMessageLoopOnce();
    return false;
}
