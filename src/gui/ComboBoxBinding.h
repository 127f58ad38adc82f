#pragma once
// Binds a TComboBox to a QComboBox: the offered items, the index and the
// text follow the model; a person's choice or typing goes to the model as a
// pick or a typed text, whose change event then runs.

#include <QObject>

#include "controls/ComboBox.h"

class QComboBox;

class TComboBoxBinding : public QObject {
    Q_OBJECT
public:
    TComboBoxBinding(TComboBox& combo, QComboBox& widget);
    ~TComboBoxBinding() override;

private:
    void ShowModel();

    TComboBox& combo;
    QComboBox& widget;
    int subscription = 0;
    bool showing = false;
};
