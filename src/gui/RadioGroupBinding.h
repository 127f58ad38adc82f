#pragma once
// Binds a TRadioGroup to a QGroupBox that the binding fills with one radio
// button per item, laid out in the group's columns. Like every binding it
// must go before its widget does.

#include <QButtonGroup>
#include <QGridLayout>
#include <memory>
#include <vector>

#include "controls/RadioGroup.h"
#include "gui/ModelBinding.h"

class QGroupBox;
class QRadioButton;

class TRadioGroupBinding : public TModelBinding {
public:
    TRadioGroupBinding(TRadioGroup& group, QGroupBox& widget);
    ~TRadioGroupBinding() override;

private:
    void ShowModel() override;
    void RebuildButtons();

    TRadioGroup& group;
    QGroupBox& box;
    QGridLayout grid;
    QButtonGroup buttons;
    std::vector<std::unique_ptr<QRadioButton>> radios;
};
