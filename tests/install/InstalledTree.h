#pragma once
// The project installed into a temporary prefix with `cmake --install`, and
// the tools of the system the tests check it with.

#include <string>
#include <vector>

#include "support/ChildProcess.h"
#include "support/TempFolder.h"

// The full path of a program on PATH; empty when there is none.
std::string OnPath(const std::string& name);
// RunChild, with argv[0] looked up on PATH unless it is a path.
TChildResult RunTool(std::vector<std::string> argv, const std::string& input = {});

class TInstalledTree {
public:
    TInstalledTree();
    bool Installed() const { return result.exitCode == 0; }
    const std::string& Log() const { return result.err; }
    // The full path of a file below the prefix: "bin/vellumdesk-cli".
    std::string operator/(const std::string& name) const { return prefix / name; }

private:
    TTempFolder prefix;
    TChildResult result;
};

// The sizes of the PNG icons, in pixels.
inline const std::vector<int> iconSizes = {16, 22, 24, 32, 48, 64, 128, 256};
