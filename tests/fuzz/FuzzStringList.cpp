// The list class's text and file loading, and what the program asks of a
// loaded list: the same lines from memory and from a file, a text that
// loads back to the same list, a sorted order the comparison agrees with,
// and name=value look-ups that find each line's own name.

#include "FuzzFolder.h"
#include "foundation/StringList.h"

namespace {

bool SameLines(const TStringList& a, const TStringList& b) {
    if (a.Count() != b.Count()) return false;
    for (int i = 0; i < a.Count(); ++i)
        if (!(a[i] == b[i])) return false;
    return true;
}

int Sign(int v) {
    return (v > 0) - (v < 0);
}

void CheckSorted(const TStringList& list) {
    TStringList sorted = list;
    sorted.SetSorted(true);
    for (int i = 1; i < sorted.Count(); ++i) {
        const int c = TStringList::CompareStrings(sorted[i - 1].view(), sorted[i].view());
        FuzzCheck(c < 0, "a sorted list without duplicates rises strictly");
        FuzzCheck(Sign(TStringList::CompareStrings(sorted[i].view(), sorted[i - 1].view())) == 1,
                  "the comparison is antisymmetric");
    }
    for (const AnsiString& line : list)
        FuzzCheck(sorted.IndexOf(line) >= 0, "every line is found in the sorted list");
}

void CheckNames(const TStringList& list) {
    for (int i = 0; i < list.Count(); ++i) {
        const AnsiString name = list.GetName(i);
        if (name.IsEmpty()) continue;
        const int at = list.IndexOfName(name);
        FuzzCheck(at >= 0 && at <= i, "a line's name is found at or before it");
        FuzzCheck(list.GetName(at) == name ||
                      TStringList::CompareStrings(list.GetName(at), name) == 0,
                  "the name found is the name asked for");
        list.GetValue(name);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const TFuzzFolder& folder = TFuzzFolder::Get();
    const std::string_view bytes = FuzzBytes(data, size);
    TStringList fromText;
    fromText.SetText(bytes);
    TStringList fromFile;
    fromFile.LoadFromFile(folder.Write("list.txt", bytes));
    FuzzCheck(SameLines(fromText, fromFile), "a file loads as its text does");
    TStringList again;
    again.SetText(fromText.GetText().view());
    FuzzCheck(SameLines(fromText, again), "the list's text loads back to the same list");
    CheckSorted(fromText);
    CheckNames(fromText);
    return 0;
}
