#pragma once
// TStringList: an ordered list of lines with name=value access, sorted or not,
// loaded and saved whole. Indexes count from 0; -1 means "not found".

#include <vector>

#include "foundation/AnsiString.h"

enum class TDuplicates { dupIgnore, dupAccept, dupError };

class TStringList {
public:
    int Count() const { return static_cast<int>(lines.size()); }
    const AnsiString& Strings(int index) const;
    const AnsiString& operator[](int index) const { return Strings(index); }
    void PutStrings(int index, const AnsiString& line);

    int Add(AnsiString line);
    // Adds lines, in their order, as Add would one by one, and empties them.
    // On a sorted list that ignores duplicates it is one sort and one merge:
    // many lines added one by one into the middle of a long list move the
    // lines behind each of them.
    void AddLines(std::vector<AnsiString>& added);
    void Insert(int index, const AnsiString& line);
    void Delete(int index);
    void Clear() { lines.clear(); }

    int IndexOf(const AnsiString& line) const;
    int IndexOfName(const AnsiString& name) const;
    AnsiString GetName(int index) const;
    AnsiString GetValue(const AnsiString& name) const;

    AnsiString GetText() const;
    void SetText(std::string_view text);
    void LoadFromFile(const AnsiString& path);
    // Replaces the file whole and atomically (AtomicFile.h).
    void SaveToFile(const AnsiString& path) const;

    bool Sorted() const { return sorted; }
    void SetSorted(bool value);
    TDuplicates Duplicates() const { return duplicates; }
    void SetDuplicates(TDuplicates value) { duplicates = value; }

    // The list comparison: case-insensitive, see CaseFold.h.
    static int CompareStrings(std::string_view a, std::string_view b);

    std::vector<AnsiString>::const_iterator begin() const { return lines.begin(); }
    std::vector<AnsiString>::const_iterator end() const { return lines.end(); }

private:
    void CheckIndex(int index) const;
    // Binary search on a sorted list: index of an equal line (found) or of the
    // place where the line belongs.
    bool Find(std::string_view line, int& index) const;

    std::vector<AnsiString> lines;
    bool sorted = false;
    TDuplicates duplicates = TDuplicates::dupIgnore;
};

// Splits text into lines by the list's rules (CR, LF, CR LF each end one
// line; a NUL ends the text) and calls add for each, as a view into text.
template <typename AddLine> void SplitLines(std::string_view text, AddLine&& add) {
    const char* p = text.data();
    const char* end = p + text.size();
    while (p < end && *p != '\0') {
        const char* start = p;
        while (p < end && *p != '\r' && *p != '\n' && *p != '\0')
            ++p;
        add(std::string_view(start, static_cast<std::size_t>(p - start)));
        if (p < end && *p == '\r') ++p;
        if (p < end && *p == '\n') ++p;
    }
}
