#pragma once
// TUtils: the program's file, path, clock, log, wait and process services,
// plus the sort state of the message list. One global object, Utils.
//
// Paths: "/" is what the program writes; wherever a path is split, both "/"
// and "\" count as separators, so texts in either form split the same way.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/AnsiString.h"
#include "foundation/Sortable.h"
#include "foundation/StringList.h"

// File attribute bits of a folder listing, as the attribute masks use them.
enum TFileAttr : int {
    faReadOnly = 0x01,
    faHidden = 0x02, // a name that begins with "."
    faSysFile = 0x04,
    faVolumeID = 0x08,
    faDirectory = 0x10,
    faArchive = 0x20, // a plain file
    faAnyFile = 0x3F,
};

struct TSearchRec {
    std::int64_t Size = 0;
    int Attr = 0;
    AnsiString Name;
};

class TUtils {
public:
    TUtils();

    // --- Folder access
    AnsiString AddBackslash(const AnsiString& path) const;
    AnsiString RemoveBackslash(const AnsiString& path) const;
    AnsiString StripQuotes(const AnsiString& s) const;
    AnsiString FileStem(const AnsiString& path) const;
    AnsiString GetAppFolder();
    bool FindEntry(const AnsiString& path, int attr);
    bool FileExists(const AnsiString& path) { return FindEntry(path, faHidden | faArchive); }
    bool FolderExists(const AnsiString& path) {
        return FindEntry(RemoveBackslash(path), faDirectory);
    }
    // Sizes are 32-bit, as the list shows them.
    std::uint32_t GetFileSize(const AnsiString& path);
    // Adds the names under mask (folder + "/*." + extension) whose extension
    // matches byte for byte and whose size is not 0. True if any was added.
    bool SearchFiles(const AnsiString& mask, int attr, TStringList& list, bool all);
    // The names SearchFiles(mask, faAnyFile, ...) would add, before their size
    // and kind are known: only the entries the folder itself marks as folders
    // are left out. No entry is looked up, so a long folder lists at once; the
    // reader of each file then drops what the size rule drops. Each name is
    // added behind prefix. False if none.
    bool ListCandidates(const AnsiString& mask, std::string_view prefix,
                        std::vector<std::string>& names);

    // --- Path texts
    AnsiString StripLeadingBackslash(const AnsiString& path) const;
    AnsiString MakeExtension(const AnsiString& ext) const;
    AnsiString BuildPath(const AnsiString& folder, const AnsiString& name,
                         const AnsiString& ext) const;
    AnsiString CutAtLast(const AnsiString& s, const AnsiString& delims) const;
    AnsiString ParentPath(const AnsiString& s, const AnsiString& delims) const;
    AnsiString RemoveExtension(const AnsiString& name) const { return CutAtLast(name, "."); }
    AnsiString ExpandProgramFiles(const AnsiString& s) const;
    AnsiString SplitPath(const AnsiString& path, AnsiString& drive, AnsiString& dir,
                         AnsiString& name, AnsiString& ext) const;

    // --- File operations
    void MakeFolder(const AnsiString& path) const;
    AnsiString RenameExtension(const AnsiString& path, const AnsiString& newExt);
    AnsiString ShortPath(const AnsiString& path);
    AnsiString GetSpecialFolder(int id) const;
    AnsiString GetLoginName() const;
    // Makes $XDG_DATA_HOME/Quillpost Users (created if missing) the working
    // folder of the process. False when it can be neither made nor entered.
    static bool EnterDataFolder();

    // --- Clock texts and the log
    AnsiString WriteLog(const char* format, ...) __attribute__((format(printf, 2, 3)));
    AnsiString TimeStamp() const;
    static std::int64_t Now(); // seconds since the epoch, local time applied when formatting
    static AnsiString FormatDateTime(const AnsiString& format, std::int64_t moment);

    // --- Waits and process start
    void Delay(std::uint32_t ms) const;
    bool WaitForFlag(const volatile std::uint8_t* flag, std::uint8_t value, std::uint32_t ms) const;
    // Starts the program file (a path, never a name looked up) with the
    // argument text params (split at blanks, double quotes group).
    bool ExecuteFile(const AnsiString& file, const AnsiString& params, bool wait);
    // The same with the arguments already apart: each reaches the program untouched.
    bool ExecuteFile(const AnsiString& file, const std::vector<AnsiString>& args, bool wait);
    // An existing plain file with the desktop's handler for its type; never run.
    bool OpenDocument(const AnsiString& path);
    // An existing folder in the desktop's file manager.
    bool OpenFolder(const AnsiString& path);

    // --- Rule lines: the Text of a rule's nine-line list as one file line.
    AnsiString FlattenRuleText(const AnsiString& text) const;

    // --- Message list helpers
    static AnsiString NormaliseDate(const AnsiString& value);
    void ToggleSort(TSortable& list, int column);

    // Fields
    AnsiString ExePath;
    AnsiString AppFolder;
    AnsiString NewExt;
    AnsiString Drive, Dir, Name, Ext;
    AnsiString ErrorText;
    TSearchRec SearchRec;
    std::uint32_t WaitMs = 100;
    std::uint32_t LastError = 0;
    int SortColumn = 0;
    bool SortFlag = false;
    AnsiString LogPath;
};

extern TUtils* Utils;
// The major version of the running system; the folder set-up tests it.
extern int OsMajorVersion;
