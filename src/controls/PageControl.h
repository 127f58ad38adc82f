#pragma once
// A page control: tab sheets, one of them shown. The sheets are controls of
// their own, so the controls on a sheet can name it as their container.

#include <functional>
#include <vector>

#include "controls/Control.h"

class TTabSheet : public TControl {
public:
    using TControl::TControl;
};

class TPageControl : public TControl {
public:
    using TControl::TControl;

    // Tabs are shown in the order they were added.
    void AddPage(TTabSheet& sheet);
    int PageCount() const { return static_cast<int>(pages.size()); }
    TTabSheet& Page(int index) const { return *pages.at(static_cast<std::size_t>(index)); }

    // From code: no event runs.
    int ActivePageIndex() const { return activePage; }
    void SetActivePageIndex(int index);

    // A person's choice of tab, then OnChange.
    void UserPick(int index);
    std::function<void()> OnChange;

    int TabWidth() const { return tabWidth; }
    void SetTabWidth(int value);

private:
    std::vector<TTabSheet*> pages;
    int activePage = -1;
    int tabWidth = 0;
};
