#pragma once
// What every fuzz target shares: a private folder for the files a reader
// takes by path, made at the first use and removed when the process exits,
// and the process-wide objects the program's code expects (Utils, whose log
// goes into that folder rather than beside the target).

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "foundation/AnsiString.h"

class TFuzzFolder {
public:
    // The one folder of this process.
    static TFuzzFolder& Get();
    ~TFuzzFolder();
    TFuzzFolder(const TFuzzFolder&) = delete;
    TFuzzFolder& operator=(const TFuzzFolder&) = delete;

    const AnsiString& Path() const { return path; }
    // Replaces the file name in the folder with bytes; its full path.
    AnsiString Write(std::string_view name, std::string_view bytes) const;
    // Writes bytes to an anonymous file in memory and rewinds it: a plain
    // file that needs no name and cannot outlive the process.
    int Memory(std::string_view bytes) const;
    // Sends the log of Utils into the folder; again after anything that
    // installs a Utils of its own (a window's creation).
    void KeepLogHere() const;

private:
    TFuzzFolder();
    AnsiString path;
    int memoryFd = -1;
};

// The input as the text it stands for.
inline std::string_view FuzzBytes(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

// Stops the run with a message when a property the program relies on fails:
// libFuzzer saves the input that did it.
void FuzzCheck(bool holds, const char* what);
