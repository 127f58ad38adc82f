#include "foundation/StringList.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <iterator>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "foundation/AtomicFile.h"
#include "foundation/CaseFold.h"
#include "foundation/FileDescriptor.h"

int TStringList::CompareStrings(std::string_view a, std::string_view b) {
    return casefold::CompareText(a, b);
}

void TStringList::CheckIndex(int index) const {
    if (index < 0 || index >= Count())
        throw EStringListError("List index out of bounds (" + std::to_string(index) + ")");
}

const AnsiString& TStringList::Strings(int index) const {
    CheckIndex(index);
    return lines[static_cast<std::size_t>(index)];
}

void TStringList::PutStrings(int index, const AnsiString& line) {
    CheckIndex(index);
    lines[static_cast<std::size_t>(index)] = line;
}

bool TStringList::Find(std::string_view line, int& index) const {
    int low = 0, high = Count() - 1;
    bool found = false;
    while (low <= high) {
        const int mid = (low + high) / 2;
        const int c = CompareStrings(lines[static_cast<std::size_t>(mid)].view(), line);
        if (c < 0) {
            low = mid + 1;
        } else {
            high = mid - 1;
            if (c == 0) found = true; // keep going left: the first equal line wins
        }
    }
    index = low;
    return found;
}

int TStringList::Add(AnsiString line) {
    if (!sorted) {
        lines.push_back(std::move(line));
        return Count() - 1;
    }
    int index = 0;
    if (Find(line.view(), index)) {
        if (duplicates == TDuplicates::dupIgnore) return index;
        if (duplicates == TDuplicates::dupError)
            throw EStringListError("String list does not allow duplicates");
    }
    lines.insert(lines.begin() + index, std::move(line));
    return index;
}

void TStringList::AddLines(std::vector<AnsiString>& added) {
    if (!sorted || duplicates != TDuplicates::dupIgnore) {
        for (const AnsiString& line : added)
            Add(line);
        added.clear();
        return;
    }
    const auto compare = [](const AnsiString& a, const AnsiString& b) {
        return CompareStrings(a.view(), b.view());
    };
    // Of lines that compare equal the first one added stays, as Find keeps it.
    std::stable_sort(added.begin(), added.end(),
                     [&](const AnsiString& a, const AnsiString& b) { return compare(a, b) < 0; });
    added.erase(
        std::unique(added.begin(), added.end(),
                    [&](const AnsiString& a, const AnsiString& b) { return compare(a, b) == 0; }),
        added.end());
    std::vector<AnsiString> merged;
    merged.reserve(lines.size() + added.size());
    auto old = lines.begin();
    auto now = added.begin();
    while (old != lines.end() && now != added.end()) {
        const int c = compare(*old, *now);
        if (c == 0) ++now;
        merged.push_back(std::move(c <= 0 ? *old++ : *now++));
    }
    std::move(old, lines.end(), std::back_inserter(merged));
    std::move(now, added.end(), std::back_inserter(merged));
    lines = std::move(merged);
    added.clear();
}

void TStringList::Insert(int index, const AnsiString& line) {
    if (index < 0 || index > Count())
        throw EStringListError("List index out of bounds (" + std::to_string(index) + ")");
    lines.insert(lines.begin() + index, line);
}

void TStringList::Delete(int index) {
    CheckIndex(index);
    lines.erase(lines.begin() + index);
}

int TStringList::IndexOf(const AnsiString& line) const {
    if (sorted) {
        int index = 0;
        return Find(line.view(), index) ? index : -1;
    }
    for (int i = 0; i < Count(); ++i)
        if (CompareStrings(lines[static_cast<std::size_t>(i)].view(), line.view()) == 0) return i;
    return -1;
}

int TStringList::IndexOfName(const AnsiString& name) const {
    for (int i = 0; i < Count(); ++i) {
        const std::string_view line = lines[static_cast<std::size_t>(i)].view();
        const auto eq = line.find('=');
        if (eq != std::string_view::npos && CompareStrings(line.substr(0, eq), name.view()) == 0)
            return i;
    }
    return -1;
}

AnsiString TStringList::GetName(int index) const {
    const std::string_view line = Strings(index).view();
    const auto eq = line.find('=');
    return eq == std::string_view::npos ? AnsiString() : AnsiString(line.substr(0, eq));
}

AnsiString TStringList::GetValue(const AnsiString& name) const {
    const int index = IndexOfName(name);
    if (index < 0) return {};
    const std::string_view line = lines[static_cast<std::size_t>(index)].view();
    return AnsiString(line.substr(line.find('=') + 1));
}

AnsiString TStringList::GetText() const {
    std::string out;
    std::size_t size = 0;
    for (const auto& line : lines)
        size += line.str().size() + 2;
    out.reserve(size);
    for (const auto& line : lines) {
        out += line.str();
        out += "\r\n";
    }
    return AnsiString(std::move(out));
}

void TStringList::SetText(std::string_view text) {
    Clear();
    SplitLines(text, [this](std::string_view line) { Add(AnsiString(line)); });
}

void TStringList::SetSorted(bool value) {
    if (value && !sorted) {
        std::stable_sort(lines.begin(), lines.end(), [](const AnsiString& a, const AnsiString& b) {
            return CompareStrings(a.view(), b.view()) < 0;
        });
        if (duplicates == TDuplicates::dupIgnore) {
            auto equal = [](const AnsiString& a, const AnsiString& b) {
                return CompareStrings(a.view(), b.view()) == 0;
            };
            lines.erase(std::unique(lines.begin(), lines.end(), equal), lines.end());
        }
    }
    sorted = value;
}

void TStringList::LoadFromFile(const AnsiString& path) {
    std::string content;
    if (!ReadWholeFile(path.c_str(), content))
        throw EFOpenError("Cannot open file \"" + path.str() + "\". " + std::strerror(errno));
    SetText(content);
}

void TStringList::SaveToFile(const AnsiString& path) const {
    SaveFileAtomically(path, GetText().view());
}
