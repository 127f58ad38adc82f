#pragma once
// The dialogs of the desktop program: modal message boxes, popup menus at a
// screen point, help popups, and the file and folder choices.

#include "platform/Dialogs.h"

#include <QString>

class QWidget;

// "description|pattern|..." as Qt's "description (pattern);;..." filter.
QString QtFileFilter(const AnsiString& filter);

class TQtDialogs : public TDialogs {
public:
    // parent: the window the boxes are modal to; may change as windows open.
    QWidget* Parent = nullptr;

    int MessageBox(const AnsiString& text, const AnsiString& caption, int style) override;
    void ShowMessage(const AnsiString& text) override;
    TMenuItem* PopupMenu(TPopupMenu& menu, TPoint screen) override;
    void ShowHelpPopup(const AnsiString& text, TPoint screen) override;
    AnsiString BrowseForFolder(const AnsiString& title, const AnsiString& start) override;
    AnsiString OpenFile(const AnsiString& title, const AnsiString& start,
                        const AnsiString& filter) override;
    void ShowException(const AnsiString& message) override;
};
