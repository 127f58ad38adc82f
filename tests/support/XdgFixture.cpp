#include "support/XdgFixture.h"

#include <filesystem>

#include "support/ChildProcess.h"
#include "support/GlobalScope.h"
#include "support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

void CopyTree(const fs::path& from, const fs::path& to) {
    for (const auto& entry : fs::recursive_directory_iterator(from)) {
        const fs::path target = to / fs::relative(entry.path(), from);
        if (entry.is_directory()) {
            fs::create_directories(target);
            continue;
        }
        std::string text = ReadFileBytes(entry.path().string());
        for (std::size_t at; (at = text.find("@RECORDER@")) != std::string::npos;)
            text.replace(at, 10, HelperProgram("argv_recorder"));
        fs::create_directories(target.parent_path());
        TTempFolder::WriteTo(target.string(), text);
    }
}

} // namespace

TXdgFixture::TXdgFixture(const std::string& folder, const std::string& record) {
    const fs::path root(folder);
    CopyTree(fs::path(VD_SOURCE_DIR) / "tests/fixtures/xdg", root);
    // GIO finds the handlers of a type through each folder's mimeinfo.cache,
    // which the desktop's own tool writes, as it does after an install.
    ready = true;
    for (const char* applications : {"home/applications", "system/applications"})
        ready =
            ready && RunChild({"/usr/bin/update-desktop-database", (root / applications).string()})
                             .exitCode == 0;
    env.Set("XDG_DATA_HOME", (root / "home").c_str());
    env.Set("XDG_DATA_DIRS", (root / "system").c_str());
    env.Set("XDG_CONFIG_HOME", (root / "config").c_str());
    env.Set("XDG_CONFIG_DIRS", (root / "config").c_str());
    env.Set("ARGV_RECORD_FILE", record.c_str());
}
