#include "cli/CliPaths.h"

#include <filesystem>
#include <sys/stat.h>

#include "script/FieldEscape.h"

namespace {

// The mode test of stat decides the kind; a text names the entry for a message.
bool MakeAbsolute(std::string& path, bool wantFolder, std::string& problem) {
    if (path.empty()) {
        problem = wantFolder ? "the folder is empty" : "the file name is empty";
        return false;
    }
    std::string shown;
    AppendEscaped(shown, path, TEscape::Controls);
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0) {
        problem = shown + ": no such " + (wantFolder ? "folder" : "file");
        return false;
    }
    if (wantFolder ? !S_ISDIR(st.st_mode) : !S_ISREG(st.st_mode)) {
        problem = shown + (wantFolder ? ": not a folder" : ": not a plain file");
        return false;
    }
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error);
    if (error) {
        problem = shown + ": " + error.message();
        return false;
    }
    path = absolute.string();
    return true;
}

} // namespace

bool AbsoluteFolder(std::string& folder, std::string& problem) {
    return MakeAbsolute(folder, true, problem);
}

bool AbsoluteFile(std::string& file, std::string& problem) {
    return MakeAbsolute(file, false, problem);
}
