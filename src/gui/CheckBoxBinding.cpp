#include "gui/CheckBoxBinding.h"

#include <QCheckBox>

#include "gui/QtText.h"

TCheckBoxBinding::TCheckBoxBinding(TCheckBox& box, QCheckBox& widget)
    : TModelBinding(box, widget), box(box), checkBox(widget) {
    connect(&widget, &QCheckBox::clicked, this, [this] {
        FromPerson([this] { this->box.UserClick(); });
        ShowModel(); // the model may have refused: show what it holds
    });
    Start();
}

void TCheckBoxBinding::ShowModel() {
    checkBox.setText(ToQString(box.Caption()));
    checkBox.setChecked(box.Checked());
}
