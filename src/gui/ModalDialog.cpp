#include "gui/ModalDialog.h"

#include <QCloseEvent>

#include "controls/Form.h"
#include "gui/ControlBinding.h"
#include "gui/QtText.h"

TModalDialog::TModalDialog(TForm& form, QWidget* parent) : QDialog(parent), form(form) {
    setWindowTitle(ToQString(form.Caption()));
    subscription = form.Subscribe([this](TControl&, TChange change) {
        if (change != TChange::Properties) return;
        setWindowTitle(ToQString(this->form.Caption()));
        if (!this->form.Visible() && isVisible()) done(0);
    });
}

TModalDialog::~TModalDialog() {
    form.Unsubscribe(subscription);
}

void TModalDialog::reject() {
    Guarded([this] { form.WindowClose(); });
}

void TModalDialog::closeEvent(QCloseEvent* event) {
    event->ignore();
    reject();
}
