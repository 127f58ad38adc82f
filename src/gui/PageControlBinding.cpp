#include "gui/PageControlBinding.h"

#include <QTabWidget>

#include "gui/QtText.h"

TPageControlBinding::TPageControlBinding(TPageControl& pages, QTabWidget& widget)
    : TModelBinding(pages, widget), pages(pages), tabs(widget) {
    connect(&widget, &QTabWidget::currentChanged, this,
            [this](int index) { FromPerson([this, index] { this->pages.UserPick(index); }); });
    Start();
}

void TPageControlBinding::ShowModel() {
    for (int i = 0; i < pages.PageCount() && i < tabs.count(); ++i)
        tabs.setTabText(i, ToQString(pages.Page(i).Caption()));
    if (pages.ActivePageIndex() >= 0 && pages.ActivePageIndex() < tabs.count())
        tabs.setCurrentIndex(pages.ActivePageIndex());
}
