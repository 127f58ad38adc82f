// TUtils: path texts and file operations.
//
// The path texts are plain text work and accept both "/" and "\" as folder
// separators, so a path from an old settings file splits as well as a Linux one.

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include "foundation/FileDescriptor.h"
#include "foundation/Utils.h"

namespace {

const AnsiString separators = "\\/";

bool IsSeparator(char c) {
    return c == '/' || c == '\\';
}

// Both separators count where the old text looked for a backslash.
int FirstSeparator(const AnsiString& s) {
    const auto at = s.str().find_first_of("\\/");
    return at == std::string::npos ? 0 : static_cast<int>(at) + 1;
}

void SplitNetworkPath(AnsiString rest, AnsiString& drive, AnsiString& dir, AnsiString& name,
                      AnsiString& ext, AnsiString& server) {
    int k = FirstSeparator(rest);
    server = rest.SubString(1, k - 1);
    drive = "\\\\" + rest.SubString(1, k);
    rest.Delete(1, k);
    k = FirstSeparator(rest);
    if (k == 0) {
        rest += "\\";
        k = FirstSeparator(rest);
    }
    drive += rest.SubString(1, k - 1);
    rest.Delete(1, k - 1);
    if (const int d = rest.LastDelimiter("."); d > 1) {
        ext = rest.SubString(d, 512);
        rest.Delete(d, rest.Length());
        if (const int b = rest.LastDelimiter(separators); b > 0) {
            name = rest.SubString(b + 1, rest.Length());
            rest.Delete(b + 1, rest.Length());
        }
    }
    dir = rest;
}

// The C library's path splitter: drive letter, folder, name, extension.
void SplitPlainPath(const AnsiString& path, AnsiString& drive, AnsiString& dir, AnsiString& name,
                    AnsiString& ext) {
    std::string_view rest = path.view();
    drive = "";
    if (rest.size() >= 2 && rest[1] == ':') {
        drive = AnsiString(rest.substr(0, 2));
        rest.remove_prefix(2);
    }
    const auto lastSep = rest.find_last_of("\\/");
    const std::size_t nameStart = lastSep == std::string_view::npos ? 0 : lastSep + 1;
    dir = AnsiString(rest.substr(0, nameStart));
    std::string_view file = rest.substr(nameStart);
    const auto dot = file.rfind('.');
    ext = dot == std::string_view::npos ? AnsiString() : AnsiString(file.substr(dot));
    name = AnsiString(file.substr(0, dot == std::string_view::npos ? file.size() : dot));
    // The old splitter held each part in 255 bytes.
    for (AnsiString* part : {&drive, &dir, &name, &ext})
        if (part->Length() > 255) *part = part->SubString(1, 255);
}

AnsiString HomeFolder() {
    if (const char* home = std::getenv("HOME"); home && *home) return home;
    if (const passwd* entry = getpwuid(getuid())) return entry->pw_dir;
    return "";
}

AnsiString XdgFolder(const char* variable, const char* fallback) {
    if (const char* value = std::getenv(variable); value && *value == '/') return value;
    const AnsiString home = HomeFolder();
    return home.IsEmpty() ? AnsiString() : home + fallback;
}

// The documents folder as the desktop names it in user-dirs.dirs
// (XDG_DOCUMENTS_DIR="$HOME/Documents"), else ~/Documents.
AnsiString DocumentsFolder() {
    TStringList dirs;
    try {
        dirs.LoadFromFile(XdgFolder("XDG_CONFIG_HOME", "/.config") + "/user-dirs.dirs");
    } catch (const Exception&) {
    }
    AnsiString value = TUtils().StripQuotes(dirs.GetValue("XDG_DOCUMENTS_DIR").Trim());
    if (value.Pos("$HOME") == 1) value = HomeFolder() + value.SubString(6, value.Length());
    if (value.Length() > 1 && value[1] == '/') return value;
    return HomeFolder() + "/Documents";
}

} // namespace

AnsiString TUtils::StripLeadingBackslash(const AnsiString& path) const {
    if (path.IsEmpty() || !IsSeparator(path[1])) return path;
    const AnsiString rest = path.SubString(2, 512);
    return FirstSeparator(rest) > 1 ? rest : path;
}

AnsiString TUtils::MakeExtension(const AnsiString& ext) const {
    if (ext.IsEmpty() || ext[1] == '.') return ext;
    return "." + ext;
}

AnsiString TUtils::BuildPath(const AnsiString& folder, const AnsiString& name,
                             const AnsiString& ext) const {
    return AddBackslash(folder) + name + MakeExtension(ext);
}

AnsiString TUtils::CutAtLast(const AnsiString& s, const AnsiString& delims) const {
    const int at = s.LastDelimiter(delims);
    return at >= 1 ? s.SubString(1, at - 1) : s;
}

AnsiString TUtils::ParentPath(const AnsiString& s, const AnsiString& delims) const {
    const int at = s.LastDelimiter(delims);
    return at >= 2 ? s.SubString(1, at - 1) : s;
}

// A marker that does not begin the text is dropped all the same, with the
// bytes before it kept: the text around it is left as it was.
AnsiString TUtils::ExpandProgramFiles(const AnsiString& s) const {
    AnsiString rest = s;
    const int p = rest.Pos("%");
    if (p == 0) return s;
    rest.Delete(p, 1);
    const int q = rest.SubString(p, rest.Length()).Pos("%");
    if (q == 0) return rest;
    const AnsiString name = rest.SubString(p, q - 1);
    rest.Delete(p, q);
    if (name.LowerCase() == "programfiles") rest.Insert("C:\\Program Files", p);
    return rest;
}

AnsiString TUtils::SplitPath(const AnsiString& path, AnsiString& drive, AnsiString& dir,
                             AnsiString& name, AnsiString& ext) const {
    if (path.Length() >= 2 && IsSeparator(path[1]) && IsSeparator(path[2])) {
        AnsiString server;
        SplitNetworkPath(path.SubString(3, 512), drive, dir, name, ext, server);
        return server;
    }
    SplitPlainPath(path, drive, dir, name, ext);
    return "";
}

void TUtils::MakeFolder(const AnsiString& path) const {
    ::mkdir(RemoveBackslash(path).c_str(), 0777);
}

namespace {
// Moves without replacing, as the old system call did: an existing target is a failure.
bool MoveNoReplace(const char* from, const char* to) {
    return ::renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE) == 0;
}
} // namespace

AnsiString TUtils::RenameExtension(const AnsiString& path, const AnsiString& newExt) {
    SplitPath(path, Drive, Dir, Name, Ext);
    const AnsiString folder = AddBackslash(Drive) + AddBackslash(Dir);
    NewExt = MakeExtension(newExt);
    LastError = 0;
    const AnsiString source = BuildPath(folder, Name, Ext);
    const AnsiString target = BuildPath(folder, Name, NewExt);
    if (MoveNoReplace(source.c_str(), target.c_str())) return target;
    if (::unlink(target.c_str()) != 0) {
        LastError = static_cast<std::uint32_t>(errno);
        return "";
    }
    if (MoveNoReplace(source.c_str(), target.c_str())) return target;
    LastError = static_cast<std::uint32_t>(errno);
    return "";
}

// Linux has no short names: the full path of an existing file stands for
// itself, and a path that does not exist gives an empty text.
AnsiString TUtils::ShortPath(const AnsiString& path) {
    struct stat st {};
    if (path.IsEmpty() || ::stat(path.c_str(), &st) != 0) return "";
    return path; // no short form here: the path itself, whatever its length
}

// 26: the application data folder (XDG data home); 5: the documents folder.
AnsiString TUtils::GetSpecialFolder(int id) const {
    if (id == 26) return XdgFolder("XDG_DATA_HOME", "/.local/share");
    if (id == 5) return DocumentsFolder();
    return "";
}

// A name longer than the old 31-byte buffer gives an empty text, as the
// failed system call did.
AnsiString TUtils::GetLoginName() const {
    AnsiString name;
    if (const passwd* entry = getpwuid(geteuid()))
        name = entry->pw_name;
    else if (const char* user = std::getenv("USER"))
        name = user;
    return name.Length() > 31 ? AnsiString() : name;
}

// A relative or empty path of the window's logic resolves in the data folder,
// never in whatever folder a shell started the program from.
bool TUtils::EnterDataFolder() {
    const AnsiString base = XdgFolder("XDG_DATA_HOME", "/.local/share");
    if (base.IsEmpty()) return false;
    const std::filesystem::path folder = std::filesystem::path(base.str()) / "Quillpost Users";
    std::error_code ignored;
    std::filesystem::create_directories(folder, ignored);
    return ::chdir(folder.c_str()) == 0;
}
