#pragma once
// TPButtons: makes a panel act as a button. Every click handler begins with a
// press and ends with a release; the press refuses a button that shows the
// busy cursor, and a click after the title bar's help button shows the
// button's help instead of running it. One global object, PButtons.

class TPanelButton;
class TPopupMenu;

class TPButtons {
public:
    // True if the handler may go on.
    bool ButtonPress(TPanelButton& button);
    bool ButtonRelease(TPanelButton& button);
    // Opens popup under the button (popup may be null); returns after it closed.
    bool MenuButtonPress(TPanelButton& button, TPopupMenu* popup);
    bool MenuButtonRelease(TPanelButton& button);

    bool HelpMode = false;

    // True while button refuses a press: its cursor or the screen's says busy.
    static bool Refused(const TPanelButton& button);

private:
    // The one-shot help click: true if this click was used up for help.
    bool HelpTest(TPanelButton& button);
};

extern TPButtons* PButtons;
