#include "foundation/ListFile.h"

#include <cerrno>
#include <sys/stat.h>

bool LoadExistingListFile(TStringList& list, const AnsiString& path) {
    try {
        list.LoadFromFile(path);
        return true;
    } catch (const EFOpenError&) {
        struct stat st {};
        if (::stat(path.c_str(), &st) != 0 && errno == ENOENT) return false;
        throw;
    }
}
