// TUtils: construction, the backslash rule, the program's folder, and folder listing.

#include <cstring>
#include <dirent.h>
#include <fnmatch.h>
#include <sys/stat.h>
#include <unistd.h>

#include "foundation/RunningApp.h"
#include "foundation/Utils.h"

TUtils* Utils = nullptr;
// Linux has no version that the folder set-up could test; a modern system's
// number keeps the data folder free of a per-login sub-folder.
int OsMajorVersion = 10;

TUtils::TUtils() = default;

namespace {

bool IsSeparator(char c) {
    return c == '/' || c == '\\';
}

constexpr const char* kSeparators = "/\\";

// The attributes a listing gives an entry: a folder, a plain file, hidden when
// its name begins with a dot, read-only when its owner cannot write it.
int AttributesOf(const struct stat& st, std::string_view name) {
    int attr = S_ISDIR(st.st_mode) ? faDirectory : faArchive;
    if (!name.empty() && name[0] == '.') attr |= faHidden;
    if (!(st.st_mode & S_IWUSR)) attr |= faReadOnly;
    return attr;
}

// A mask admits plain files always; hidden, system, volume and folder entries
// only where it has their bit.
bool Admitted(int entryAttr, int mask) {
    constexpr int special = faHidden | faSysFile | faVolumeID | faDirectory;
    return (entryAttr & special & ~mask) == 0;
}

bool HasWildcard(std::string_view s) {
    return s.find_first_of("*?") != std::string_view::npos;
}

// The extension a mask asks for, from its last dot: a name matches when
// its own extension is the same, byte for byte.
class TExtension {
public:
    explicit TExtension(const AnsiString& mask) {
        const int dot = mask.LastDelimiter(".");
        if (dot > 0) wanted = mask.SubString(dot, mask.Length()).str();
    }
    const std::string& Text() const { return wanted; }
    bool Matches(std::string_view name) const {
        const auto dot = name.rfind('.');
        return (dot == std::string_view::npos ? std::string_view() : name.substr(dot)) == wanted;
    }

private:
    std::string wanted;
};

struct SplitMask {
    std::string folder; // "." when the mask has no folder
    std::string pattern;
};

SplitMask Split(const std::string& path) {
    const auto slash = path.find_last_of(kSeparators);
    if (slash == std::string::npos) return {".", path};
    return {slash == 0 ? "/" : path.substr(0, slash), path.substr(slash + 1)};
}

// Calls visit(dirFd, entry) for each entry of folder but "." and "..", in
// the directory's own order, until visit returns false.
template <typename Visit> void ReadEntries(const std::string& folder, Visit&& visit) {
    DIR* dir = opendir(folder.c_str());
    if (!dir) return;
    const int dirFd = dirfd(dir);
    while (const dirent* entry = readdir(dir)) {
        const char* name = entry->d_name;
        if (std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0) continue;
        if (!visit(dirFd, *entry)) break;
    }
    closedir(dir);
}

// Calls visit(name, stat) for each entry of folder that pattern matches and
// mask admits, in the directory's own order, until visit returns false.
template <typename Visit> void ListEntries(const SplitMask& where, int mask, Visit&& visit) {
    ReadEntries(where.folder, [&](int dirFd, const dirent& entry) {
        const char* name = entry.d_name;
        struct stat st {};
        if (fnmatch(where.pattern.c_str(), name, 0) != 0 || fstatat(dirFd, name, &st, 0) != 0 ||
            !Admitted(AttributesOf(st, name), mask))
            return true;
        return visit(std::string_view(name), st);
    });
}

} // namespace

AnsiString TUtils::AddBackslash(const AnsiString& path) const {
    if (path.IsEmpty() || IsSeparator(path.str().back())) return path;
    return path + "/";
}

AnsiString TUtils::RemoveBackslash(const AnsiString& path) const {
    if (path.IsEmpty() || !IsSeparator(path.str().back())) return path;
    return path.SubString(1, path.Length() - 1);
}

AnsiString TUtils::StripQuotes(const AnsiString& s) const {
    std::string out = s.str();
    std::erase(out, '"');
    return AnsiString(std::move(out));
}

AnsiString TUtils::FileStem(const AnsiString& path) const {
    AnsiString stem = path;
    const int dot = stem.LastDelimiter(".");
    if (dot > 0) stem.Delete(dot, 128);
    const int slash = stem.LastDelimiter(kSeparators);
    if (slash > 0) stem.Delete(1, slash);
    return stem;
}

AnsiString TUtils::GetAppFolder() {
    const TRunningApp* app = TRunningApp::Running();
    ExePath = app ? app->ExeName : AnsiString();
    const int slash = ExePath.LastDelimiter(kSeparators);
    AppFolder = ExePath.SubString(1, slash);
    return AddBackslash(AppFolder);
}

bool TUtils::FindEntry(const AnsiString& path, int attr) {
    const SplitMask where = Split(path.str());
    if (where.pattern.empty()) return false;
    bool found = false;
    auto note = [&](std::string_view name, const struct stat& st) {
        SearchRec.Size = S_ISDIR(st.st_mode) ? 0 : static_cast<std::int64_t>(st.st_size);
        SearchRec.Attr = AttributesOf(st, name);
        SearchRec.Name = AnsiString(name);
        found = true;
        return false;
    };
    if (HasWildcard(where.pattern)) {
        ListEntries(where, attr, note);
        return found;
    }
    // A plain name needs no listing: one stat answers it.
    struct stat st {};
    if (stat(path.c_str(), &st) != 0 || !Admitted(AttributesOf(st, where.pattern), attr))
        return false;
    note(where.pattern, st);
    return true;
}

std::uint32_t TUtils::GetFileSize(const AnsiString& path) {
    return FileExists(path) ? static_cast<std::uint32_t>(SearchRec.Size) : 0;
}

bool TUtils::SearchFiles(const AnsiString& mask, int attr, TStringList& list, bool /*all*/) {
    const TExtension wanted(mask);
    bool added = false;
    ListEntries(Split(mask.str()), attr, [&](std::string_view name, const struct stat& st) {
        if (S_ISDIR(st.st_mode) || st.st_size == 0) return true;
        if (wanted.Matches(name)) {
            list.Add(AnsiString(name));
            added = true;
        }
        return true;
    });
    return added;
}

bool TUtils::ListCandidates(const AnsiString& mask, std::string_view prefix,
                            std::vector<std::string>& names) {
    const SplitMask where = Split(mask.str());
    const TExtension wanted(mask);
    // The scan's own mask, "*" and the extension, asks nothing more of a
    // name than the extension does.
    const bool extensionOnly = where.pattern == "*" + wanted.Text();
    bool added = false;
    ReadEntries(where.folder, [&](int, const dirent& entry) {
        const char* name = entry.d_name;
        if (entry.d_type == DT_DIR || !wanted.Matches(name) ||
            (!extensionOnly && fnmatch(where.pattern.c_str(), name, 0) != 0))
            return true;
        std::string& named = names.emplace_back(prefix);
        named += name;
        added = true;
        return true;
    });
    return added;
}
