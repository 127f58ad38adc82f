// TInboxFrm: the order of the rows and the filter controls.

#include <algorithm>

#include "foundation/Utils.h"
#include "inbox/InboxForm.h"

namespace {

const AnsiString& TextOfColumn(const TListItem& row, int column) {
    return column == 0 ? row.Caption : row.SubItems.at(static_cast<std::size_t>(column - 1));
}

int Ordered(const auto& a, const auto& b) {
    return a < b ? 1 : a > b ? -1 : 0;
}

bool IsAscii(std::string_view s) {
    return std::all_of(s.begin(), s.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

unsigned char AsciiUpper(char c) {
    const auto b = static_cast<unsigned char>(c);
    return b >= 'a' && b <= 'z' ? static_cast<unsigned char>(b - 32) : b;
}

// The order of the upper-cased texts. Plain ASCII texts are compared byte by
// byte without making upper-case copies; anything else folds whole.
int OrderedUpper(const AnsiString& a, const AnsiString& b) {
    if (!IsAscii(a.view()) || !IsAscii(b.view())) return Ordered(a.UpperCase(), b.UpperCase());
    const std::string_view x = a.view(), y = b.view();
    const std::size_t common = std::min(x.size(), y.size());
    for (std::size_t i = 0; i < common; ++i) {
        const unsigned char p = AsciiUpper(x[i]), q = AsciiUpper(y[i]);
        if (p != q) return p < q ? 1 : -1;
    }
    return Ordered(x.size(), y.size());
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
        r = OrderedUpper(TextOfColumn(item1, column), TextOfColumn(item2, column));
    if (column == 2) r = -r;
    if (!Utils->SortFlag) r = -r;
    return r;
}

int TInboxFrm::SortedColumn() const {
    return lvEmailList.SortType() == TSortType::stText && Utils ? Utils->SortColumn : -1;
}

// Mirrors lvEmailListCompare: Arrival Date starts the other way round.
bool TInboxFrm::SortedAscending() const {
    return SortedColumn() == 2 ? Utils->SortFlag : !Utils->SortFlag;
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
