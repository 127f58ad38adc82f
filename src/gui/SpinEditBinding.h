#pragma once
// Binds a TSpinEdit to a QSpinBox: the limits and the value follow the
// model; a person's change reaches the model as typed text.

#include "controls/SpinEdit.h"
#include "gui/ModelBinding.h"

class QSpinBox;

class TSpinEditBinding : public TModelBinding {
public:
    TSpinEditBinding(TSpinEdit& spin, QSpinBox& widget);

private:
    void ShowModel() override;

    TSpinEdit& spin;
    QSpinBox& spinBox;
};
