#include "install/InstalledTree.h"

#include <cstdlib>
#include <sstream>
#include <unistd.h>

std::string OnPath(const std::string& name) {
    const char* path = std::getenv("PATH");
    std::istringstream folders(path ? path : "/usr/bin:/bin");
    for (std::string folder; std::getline(folders, folder, ':');) {
        const std::string candidate = folder + "/" + name;
        if (!folder.empty() && access(candidate.c_str(), X_OK) == 0) return candidate;
    }
    return {};
}

TChildResult RunTool(std::vector<std::string> argv, const std::string& input) {
    if (argv[0].find('/') == std::string::npos) argv[0] = OnPath(argv[0]);
    return RunChild(argv, input);
}

TInstalledTree::TInstalledTree()
    : result(RunChild({VD_CMAKE, "--install", VD_BINARY_DIR, "--prefix", prefix.Path()})) {}
