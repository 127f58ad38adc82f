#pragma once
// Everything that asks a person something or shows them a text in a box of
// its own: message boxes, popup menus, help popups, file and folder choices.
// The desktop program answers them on the screen; tests and scripts answer
// them from a queue (ScriptedDialogs.h).

#include "controls/Cursor.h"
#include "foundation/AnsiString.h"

class TMenuItem;
class TPopupMenu;

// Buttons of a message box, in the numbering the windows test for.
enum TMessageStyle { mbOK = 0, mbOKCancel = 1, mbYesNo = 4 };
enum TMessageAnswer { idOK = 1, idCancel = 2, idYes = 6, idNo = 7 };

class TDialogs {
public:
    virtual ~TDialogs() = default;

    // A modal box; returns one of TMessageAnswer.
    virtual int MessageBox(const AnsiString& text, const AnsiString& caption, int style) = 0;
    // A box with the text and an OK button.
    virtual void ShowMessage(const AnsiString& text) = 0;
    // Shows the menu and returns when it has closed: the chosen entry, or null.
    virtual TMenuItem* PopupMenu(TPopupMenu& menu, TPoint screen) = 0;
    // A help text near a screen point, gone at the next click.
    virtual void ShowHelpPopup(const AnsiString& text, TPoint screen) = 0;
    // A folder or file choice: the chosen path, or empty for Cancel.
    virtual AnsiString BrowseForFolder(const AnsiString& title, const AnsiString& start) = 0;
    virtual AnsiString OpenFile(const AnsiString& title, const AnsiString& start,
                                const AnsiString& filter) = 0;
    // The application's exception box.
    virtual void ShowException(const AnsiString& message) = 0;
};

extern TDialogs* Dialogs;
