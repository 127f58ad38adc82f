// TUtils: the date text of the message list and the list's sort state.

#include <cctype>

#include "foundation/Utils.h"

namespace {

constexpr const char* monthNames[12] = {"jan", "feb", "mar", "apr", "may", "jun",
                                        "jul", "aug", "sep", "oct", "nov", "dec"};

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// The first two bytes in front of the first colon and five behind it, with
// dots for the colons. A text that ends less than three bytes behind the colon
// keeps what it has, with its first dot only.
AnsiString TimeText(const AnsiString& t) {
    const int p = t.Pos(":");
    if (p <= 3) return "";
    AnsiString time = t.SubString(p - 2, 8);
    time[3] = '.';
    if (time.Length() >= 6) time[6] = '.';
    return time;
}

// The forgiving digit scan: the last short run is the day, a run of three or
// four digits the year, and a run that reaches the end is never read.
void ScanDigits(const AnsiString& t, int& day, int& year) {
    int mark = 0;
    for (int i = 1; i <= t.Length(); ++i) {
        if (year > 0 && day > 0) return;
        if (IsDigit(t[i])) {
            if (mark == 0) mark = i;
            continue;
        }
        if (mark == 0) continue;
        const int n = i - mark;
        if (n < 3) {
            day = t.SubString(mark, n).ToIntDef(0);
            mark = 0;
        } else if (n <= 4) {
            year = t.SubString(mark, n).ToIntDef(0);
        }
    }
}

int MonthOf(const AnsiString& t) {
    const AnsiString lower = t.LowerCase();
    for (int m = 0; m < 12; ++m)
        if (lower.Pos(monthNames[m]) > 0) return m + 1;
    return 13;
}

AnsiString ZoneOf(const AnsiString& t) {
    if (const int p = t.Pos("-"); p > 1) return t.SubString(p, 5);
    if (const int p = t.Pos("+"); p > 1) return t.SubString(p, 5);
    return " ";
}

} // namespace

AnsiString TUtils::NormaliseDate(const AnsiString& value) {
    std::string slashless = value.str();
    for (char& c : slashless)
        if (c == '/') c = '.';
    const AnsiString t = AnsiString(std::move(slashless)).Trim();
    int day = 0, year = 0;
    const AnsiString time = TimeText(t);
    ScanDigits(t, day, year);
    AnsiString result;
    result.sprintf("%.2d.%.2d.%.4d %s%s", MonthOf(t), day, year, time.c_str(), ZoneOf(t).c_str());
    return result;
}

void TUtils::ToggleSort(TSortable& list, int column) {
    list.SetSortType(TSortType::stNone);
    SortFlag = column == SortColumn ? !SortFlag : false;
    SortColumn = column;
    list.SetSortType(TSortType::stText);
}
