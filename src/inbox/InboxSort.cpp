// TInboxFrm: the order of the rows and the filter controls.

#include "foundation/Utils.h"
#include "inbox/InboxForm.h"

namespace {

const AnsiString& TextOfColumn(const TListItem& row, int column) {
    return column == 0 ? row.Caption : row.SubItems.at(static_cast<std::size_t>(column - 1));
}

int Ordered(const auto& a, const auto& b) {
    return a < b ? 1 : a > b ? -1 : 0;
}

} // namespace

void TInboxFrm::lvEmailListColumnClick(int column) {
    Utils->ToggleSort(lvEmailList, column);
}

// Ascending for every column but Arrival Date, whose first click shows the
// newest month first; a second click on a column reverses it.
int TInboxFrm::lvEmailListCompare(const TListItem& item1, const TListItem& item2) const {
    const int column = Utils->SortColumn;
    int r = 0;
    if (column == 3)
        r = Ordered(TextOfColumn(item1, 3).ToIntDef(0), TextOfColumn(item2, 3).ToIntDef(0));
    else
        r = Ordered(TextOfColumn(item1, column).UpperCase(),
                    TextOfColumn(item2, column).UpperCase());
    if (column == 2) r = -r;
    if (!Utils->SortFlag) r = -r;
    return r;
}

void TInboxFrm::LMDcbFilterTypeChange() {
    FillFilterTexts();
}

void TInboxFrm::FillFilterTexts() {
    const int type = LMDcbFilterType.Items().IndexOf(LMDcbFilterType.Text());
    switch (type) {
    case 1:
        LMDcbFilterText.SetItems(FromFilterTexts);
        break;
    case 2:
        LMDcbFilterText.SetItems(SubjectFilterTexts);
        break;
    case 3:
        LMDcbFilterText.SetItems(DateFilterTexts);
        break;
    default:
        LMDcbFilterText.ClearItems();
        break;
    }
    LMDcbFilterText.SetText("");
}
