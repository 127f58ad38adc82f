#include "gui/EditBinding.h"

#include <QLineEdit>

#include "gui/QtText.h"

TEditBinding::TEditBinding(TEdit& edit, QLineEdit& widget)
    : TModelBinding(edit, widget), edit(edit), line(widget) {
    connect(&widget, &QLineEdit::textEdited, this, [this](const QString& text) {
        FromPerson([this, &text] { this->edit.UserType(FromQString(text)); });
    });
    Start();
}

void TEditBinding::ShowModel() {
    if (FromQString(line.text()) != edit.Text()) line.setText(ToQString(edit.Text()));
}
