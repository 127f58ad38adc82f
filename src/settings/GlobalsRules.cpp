// TGlobals: adding a rule to one of the four rule files.

#include "foundation/FileLock.h"
#include "foundation/ListFile.h"
#include "foundation/Utils.h"
#include "settings/Globals.h"

// The lock is held from the load to the save, so a writer of the suite that
// takes the same lock between the two is never lost. A missing file is made
// and logged; a file that is there but cannot be read is left alone and the
// reason reaches the exception box, since rewriting it would drop its rules.
bool TGlobals::AppendRuleLine(const AnsiString& path, const AnsiString& line) {
    TFileLock lock(path);
    TStringList list;
    if (!LoadExistingListFile(list, path)) {
        Utils->WriteLog("Filter file does not exist:%s", path.c_str());
        list.SaveToFile(path);
    }
    if (list.IndexOf(line) >= 0) return false;
    list.Add(line);
    list.SaveToFile(path);
    return true;
}
