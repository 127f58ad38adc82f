#include "platform/ProgramPath.h"

#include <climits>
#include <unistd.h>

AnsiString OwnProgramPath(const char* argv0) {
    char path[PATH_MAX];
    const ssize_t length = ::readlink("/proc/self/exe", path, sizeof path - 1);
    if (length > 0) return AnsiString(path, static_cast<std::size_t>(length));
    return argv0 ? AnsiString(argv0) : AnsiString();
}
