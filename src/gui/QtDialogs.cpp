#include "gui/QtDialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QWhatsThis>

#include "controls/PopupMenu.h"
#include "gui/PopupPlacement.h"
#include "gui/QtText.h"

int TQtDialogs::MessageBox(const AnsiString& text, const AnsiString& caption, int style) {
    QMessageBox box(QMessageBox::Warning, ToQString(caption), ToQString(text),
                    QMessageBox::NoButton, Parent);
    switch (style) {
    case mbOKCancel:
        box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
        break;
    case mbYesNo:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        break;
    default:
        box.setStandardButtons(QMessageBox::Ok);
        break;
    }
    switch (box.exec()) {
    case QMessageBox::Ok:
        return idOK;
    case QMessageBox::Yes:
        return idYes;
    case QMessageBox::No:
        return idNo;
    default:
        return style == mbOK ? idOK : style == mbYesNo ? idNo : idCancel;
    }
}

void TQtDialogs::ShowMessage(const AnsiString& text) {
    QMessageBox::information(Parent, QApplication::applicationName(), ToQString(text));
}

TMenuItem* TQtDialogs::PopupMenu(TPopupMenu& popup, TPoint screen) {
    QMenu menu(Parent);
    for (int i = 0; i < popup.Items.GetCount(); ++i) {
        TMenuItem& item = popup.Items.Items(i);
        menu.addAction(ToQString(item.Caption))->setData(QVariant::fromValue<void*>(&item));
    }
    const QPoint at(screen.X, screen.Y);
    menu.ensurePolished();
    const QPoint position =
        PopupPosition(at, menu.sizeHint(), AvailableAreaAt(at), AnchorTopAt(at));
    const QAction* chosen = menu.exec(position);
    return chosen ? static_cast<TMenuItem*>(chosen->data().value<void*>()) : nullptr;
}

void TQtDialogs::ShowHelpPopup(const AnsiString& text, TPoint screen) {
    QWhatsThis::showText(QPoint(screen.X, screen.Y), ToQString(text), Parent);
}

AnsiString TQtDialogs::BrowseForFolder(const AnsiString& title, const AnsiString& start) {
    return FromQString(
        QFileDialog::getExistingDirectory(Parent, ToQString(title), ToQString(start)));
}

AnsiString TQtDialogs::OpenFile(const AnsiString& title, const AnsiString& start,
                                const AnsiString& filter) {
    return FromQString(QFileDialog::getOpenFileName(Parent, ToQString(title), ToQString(start),
                                                    ToQString(filter)));
}

void TQtDialogs::ShowException(const AnsiString& message) {
    QMessageBox::critical(Parent, QApplication::applicationName(), ToQString(message));
}
