#include "gui/ModelBinding.h"

#include <QWidget>

#include "gui/QtText.h"

TModelBinding::TModelBinding(TControl& control, QWidget& widget)
    : control(control), widget(widget) {}

TModelBinding::~TModelBinding() {
    if (subscription) control.Unsubscribe(subscription);
}

void TModelBinding::Start() {
    Refresh();
    subscription = control.Subscribe([this](TControl&, TChange) { Refresh(); });
    BindCommonProperties(control, widget);
}

void TModelBinding::Refresh() {
    showing = true;
    ShowModel();
    // The hint is the tool tip; a widget whose control never had one keeps its own.
    if (hinted || !control.Hint().IsEmpty()) {
        widget.setToolTip(ToQString(control.Hint()));
        hinted = true;
    }
    showing = false;
}
