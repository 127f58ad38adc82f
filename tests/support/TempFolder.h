#pragma once
// A folder under /tmp that lives as long as the test, and small whole-file
// helpers for writing fixtures into it.

#include <string>
#include <string_view>

class TTempFolder {
public:
    TTempFolder();
    ~TTempFolder();
    TTempFolder(const TTempFolder&) = delete;
    TTempFolder& operator=(const TTempFolder&) = delete;

    const std::string& Path() const { return path; }
    // The full path of name inside the folder, sub-folders created.
    std::string Write(std::string_view name, std::string_view bytes) const;
    std::string MakeFolder(std::string_view name) const;
    std::string operator/(std::string_view name) const { return path + "/" + std::string(name); }
    // Writes bytes to a full path whose folder exists.
    static void WriteTo(const std::string& fullPath, std::string_view bytes);

private:
    std::string path;
};

std::string ReadFileBytes(const std::string& path);
bool PathExists(const std::string& path);
// The bytes of a file that another process writes whole; waits for it to
// appear, for five seconds at the most.
std::string AwaitFile(const std::string& path);
