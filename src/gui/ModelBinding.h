#pragma once
// The common part of a binding between a control model and a Qt widget: it
// follows the model's notices while both live, and tells a person's action
// from the binding's own repainting, so that showing the model never feeds
// back into the model as if a person had acted.

#include <QObject>

#include "controls/Control.h"
#include "controls/Form.h"
#include "gui/ControlBinding.h"

class QWidget;

class TModelBinding : public QObject {
public:
    TModelBinding(TControl& control, QWidget& widget);
    ~TModelBinding() override;

protected:
    // A derived binding calls Start at the end of its constructor, once its
    // widget is set up: the model is shown and followed from then on.
    void Start();
    virtual void ShowModel() = 0;

    // Runs a person's action on the model, unless the change came from ShowModel.
    template <typename Action> void FromPerson(Action&& action) {
        if (showing) return;
        if (auto* form = control.Owner()) form->SetActiveControl(&control);
        Guarded(action);
    }

    TControl& control;
    QWidget& widget;

private:
    void Refresh();

    int subscription = 0;
    bool showing = false;
    bool hinted = false;
};
