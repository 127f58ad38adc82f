#include "foundation/ListFile.h"

#include <cerrno>
#include <cstring>
#include <sys/stat.h>

#include "foundation/FileDescriptor.h"

// A NUL byte ends the list's text, so a file that holds one would lose
// everything behind it when the caller writes the list back.
bool LoadExistingListFile(TStringList& list, const AnsiString& path) {
    std::string content;
    if (!ReadWholeFile(path.c_str(), content)) {
        const int error = errno;
        struct stat st {};
        if (::stat(path.c_str(), &st) != 0 && errno == ENOENT) return false;
        throw EFOpenError("Cannot open file \"" + path.str() + "\". " + std::strerror(error));
    }
    if (content.find('\0') != std::string::npos)
        throw EFOpenError("Cannot open file \"" + path.str() + "\". It holds a NUL byte.");
    list.SetText(content);
    return true;
}
