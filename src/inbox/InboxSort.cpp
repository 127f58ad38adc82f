// TInboxFrm: the order of the rows and the filter controls.

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "foundation/Utils.h"
#include "inbox/InboxForm.h"

namespace {

std::string_view TextOfColumn(const TListItem& row, int column) {
    if (column == 0) return row.Caption.view();
    const auto index = static_cast<std::size_t>(column - 1);
    if (index >= row.SubItems.size()) throw std::out_of_range("no such column");
    return row.SubItems.View(index);
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
int OrderedUpper(std::string_view x, std::string_view y) {
    if (!IsAscii(x) || !IsAscii(y))
        return Ordered(AnsiString(x).UpperCase(), AnsiString(y).UpperCase());
    const std::size_t common = std::min(x.size(), y.size());
    for (std::size_t i = 0; i < common; ++i) {
        const unsigned char p = AsciiUpper(x[i]), q = AsciiUpper(y[i]);
        if (p != q) return p < q ? 1 : -1;
    }
    return Ordered(x.size(), y.size());
}

// Ascending for every column but Arrival Date, whose first click shows the
// newest month first; a second click on a column reverses it.
int CompareTexts(int column, bool flag, std::string_view a, std::string_view b) {
    int r = 0;
    if (column == 3)
        r = Ordered(AnsiString(a).ToIntDef(0), AnsiString(b).ToIntDef(0));
    else
        r = OrderedUpper(a, b);
    if (column == 2) r = -r;
    if (!flag) r = -r;
    return r;
}

// 16 bytes of the upper-cased text, big-endian and padded with zeros, order
// as the texts do wherever they differ; the number column orders by its
// value. A column that runs from large to small turns the key's bits over.
TSortKey KeyOfText(int column, bool flag, std::string_view text, unsigned depth) {
    const bool ascending = (column == 2) == flag;
    TSortKey key;
    if (column == 3) {
        key.high =
            static_cast<std::uint64_t>(AnsiString(text).ToIntDef(0)) ^ (std::uint64_t{1} << 63);
        key.whole = true;
    } else {
        std::string upper;
        const std::string_view folded =
            IsAscii(text) ? text : (upper = AnsiString(text).UpperCase().str());
        unsigned char bytes[16] = {};
        const std::size_t from = std::min<std::size_t>(folded.size(), 16 * std::size_t{depth});
        const std::size_t count = std::min(folded.size() - from, sizeof bytes);
        for (std::size_t i = 0; i < count; ++i)
            bytes[i] = AsciiUpper(folded[from + i]);
        for (std::size_t i = 0; i < 8; ++i) {
            key.high = key.high << 8 | bytes[i];
            key.low = key.low << 8 | bytes[i + 8];
        }
        key.whole = folded.size() - from <= sizeof bytes &&
                    std::find(bytes, bytes + count, 0) == bytes + count;
    }
    if (!ascending) {
        key.high = ~key.high;
        key.low = ~key.low;
    }
    return key;
}

} // namespace

void TInboxFrm::lvEmailListColumnClick(int column) {
    Utils->ToggleSort(lvEmailList, column);
}

int TInboxFrm::lvEmailListCompare(const TListItem& item1, const TListItem& item2) const {
    const int column = Utils->SortColumn;
    return CompareTexts(column, Utils->SortFlag, TextOfColumn(item1, column),
                        TextOfColumn(item2, column));
}

// The column and direction of now, held by value: the texts may be ordered
// on another thread while a click changes them.
TTextOrder TInboxFrm::lvEmailListTextOrder() const {
    const int column = Utils->SortColumn;
    const bool flag = Utils->SortFlag;
    return {
        .Text = [column](const TListItem& row) { return TextOfColumn(row, column); },
        .Key = [column, flag](std::string_view text,
                              unsigned depth) { return KeyOfText(column, flag, text, depth); },
        .Compare = [column, flag](std::string_view a,
                                  std::string_view b) { return CompareTexts(column, flag, a, b); }};
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
    FlushFilterTexts();
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
