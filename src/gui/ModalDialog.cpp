#include "gui/ModalDialog.h"

#include <QCloseEvent>

#include "controls/Form.h"
#include "gui/ControlBinding.h"
#include "gui/QtText.h"
#include "gui/WindowFrame.h"

TModalDialog::TModalDialog(TForm& form, QWidget* parent) : QDialog(parent), form(form) {
    setWindowTitle(WindowTitleOf(form.Caption()));
    subscription = form.Subscribe([this](TControl&, TChange change) {
        if (change != TChange::Properties) return;
        setWindowTitle(WindowTitleOf(this->form.Caption()));
        if (!this->form.Visible() && isVisible()) done(0);
    });
}

TModalDialog::~TModalDialog() {
    form.Unsubscribe(subscription);
}

void TModalDialog::reject() {
    Guarded([this] { form.WindowClose(); });
}

// The dialog's widgets exist only now, built by the derived view: the keys
// go to its buttons, and it opens no larger than the screen.
void TModalDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (prepared) return;
    prepared = true;
    InstallWindowKeys(*this);
    FitIntoScreen(*this);
}

void TModalDialog::closeEvent(QCloseEvent* event) {
    event->ignore();
    reject();
}
