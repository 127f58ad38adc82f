// Showing a popup menu needs the dialog service and the message loop, which
// sit above the controls; the menu model itself stays a plain control.

#include "controls/PopupMenu.h"
#include "platform/Application.h"
#include "platform/Dialogs.h"

void TPopupMenu::Popup(TPoint screen) {
    if (OnPopup) OnPopup();
    TMenuItem* chosen = Dialogs ? Dialogs->PopupMenu(*this, screen) : nullptr;
    if (chosen && Application) Application->Post([chosen] { chosen->Click(); });
}
