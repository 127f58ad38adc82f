#pragma once
// Binds a TCheckBox to a QCheckBox: a click is the model's click.

#include "controls/CheckBox.h"
#include "gui/ModelBinding.h"

class QCheckBox;

class TCheckBoxBinding : public TModelBinding {
public:
    TCheckBoxBinding(TCheckBox& box, QCheckBox& widget);

private:
    void ShowModel() override;

    TCheckBox& box;
    QCheckBox& checkBox;
};
