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
        if (item.Caption == "-") {
            menu.addSeparator();
            continue;
        }
        QAction* action = menu.addAction(ToQString(item.Caption));
        action->setData(QVariant::fromValue<void*>(&item));
        action->setEnabled(item.Enabled);
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

// A filter of "description|pattern" pairs, as the windows give it, becomes
// Qt's "description (pattern);;..." form; "*.*" means every file.
QString QtFileFilter(const AnsiString& filter) {
    const QStringList parts = ToQString(filter).split('|');
    QStringList entries;
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        QString pattern = parts[i + 1];
        pattern.replace("*.*", "*");
        pattern.replace(';', ' ');
        entries << parts[i] + " (" + pattern + ")";
    }
    return entries.join(";;");
}

AnsiString TQtDialogs::OpenFile(const AnsiString& title, const AnsiString& start,
                                const AnsiString& filter) {
    return FromQString(QFileDialog::getOpenFileName(Parent, ToQString(title), ToQString(start),
                                                    QtFileFilter(filter)));
}

void TQtDialogs::ShowException(const AnsiString& message) {
    QMessageBox::critical(Parent, QApplication::applicationName(), ToQString(message));
}
