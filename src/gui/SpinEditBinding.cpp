#include "gui/SpinEditBinding.h"

#include <QSpinBox>
#include <string>

TSpinEditBinding::TSpinEditBinding(TSpinEdit& spin, QSpinBox& widget)
    : TModelBinding(spin, widget), spin(spin), spinBox(widget) {
    connect(&widget, &QSpinBox::valueChanged, this, [this](int value) {
        FromPerson([this, value] { this->spin.UserType(AnsiString(std::to_string(value))); });
    });
    Start();
}

void TSpinEditBinding::ShowModel() {
    spinBox.setRange(spin.MinValue, spin.MaxValue);
    spinBox.setValue(spin.Value());
}
