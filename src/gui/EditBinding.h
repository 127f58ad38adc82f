#pragma once
// Binds a TEdit to a QLineEdit.

#include "controls/Edit.h"
#include "gui/ModelBinding.h"

class QLineEdit;

class TEditBinding : public TModelBinding {
public:
    TEditBinding(TEdit& edit, QLineEdit& widget);

private:
    void ShowModel() override;

    TEdit& edit;
    QLineEdit& line;
};
