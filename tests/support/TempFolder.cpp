#include "support/TempFolder.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <thread>

namespace fs = std::filesystem;

TTempFolder::TTempFolder() {
    std::string pattern = (fs::temp_directory_path() / "vellumdesk-test-XXXXXX").string();
    if (!mkdtemp(pattern.data())) throw std::runtime_error("mkdtemp failed");
    path = pattern;
}

TTempFolder::~TTempFolder() {
    std::error_code ignored;
    // Tests may leave read-only folders behind; give them back before removing.
    for (auto it = fs::recursive_directory_iterator(path, ignored);
         it != fs::recursive_directory_iterator(); it.increment(ignored))
        fs::permissions(it->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
    fs::remove_all(path, ignored);
}

std::string TTempFolder::Write(std::string_view name, std::string_view bytes) const {
    const fs::path full = fs::path(path) / name;
    fs::create_directories(full.parent_path());
    std::ofstream(full, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
    return full.string();
}

void TTempFolder::WriteTo(const std::string& fullPath, std::string_view bytes) {
    std::ofstream(fullPath, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
}

std::string TTempFolder::MakeFolder(std::string_view name) const {
    const fs::path full = fs::path(path) / name;
    fs::create_directories(full);
    return full.string();
}

std::string ReadFileBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream out;
    out << in.rdbuf();
    return out.str();
}

bool PathExists(const std::string& path) {
    std::error_code ignored;
    return fs::exists(fs::symlink_status(path, ignored));
}

std::string AwaitFile(const std::string& path) {
    for (int i = 0; i < 500 && !PathExists(path); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    return ReadFileBytes(path);
}
