#pragma once
// Binds a TPageControl to a QTabWidget whose tabs the window added in the
// order of the model's sheets; the shown tab follows the model both ways.

#include "controls/PageControl.h"
#include "gui/ModelBinding.h"

class QTabWidget;

class TPageControlBinding : public TModelBinding {
public:
    TPageControlBinding(TPageControl& pages, QTabWidget& widget);

private:
    void ShowModel() override;

    TPageControl& pages;
    QTabWidget& tabs;
};
