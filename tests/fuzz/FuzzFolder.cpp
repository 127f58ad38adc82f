#include "FuzzFolder.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

#include "foundation/Utils.h"

namespace {

// Utils lives as long as the process, as in the program.
void InstallUtils() {
    static std::unique_ptr<TUtils> owned;
    if (Utils) return;
    owned = std::make_unique<TUtils>();
    Utils = owned.get();
}

void WriteAll(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t n = ::write(fd, bytes.data(), bytes.size());
        if (n <= 0) {
            std::perror("fuzz: write");
            std::abort();
        }
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
}

} // namespace

// TMPDIR lets a run keep its folder (and what a crash leaves of it) in its
// build tree.
TFuzzFolder::TFuzzFolder() {
    const char* tmp = std::getenv("TMPDIR");
    std::string pattern = std::string(tmp && *tmp ? tmp : "/tmp") + "/vellumdesk-fuzz-XXXXXX";
    if (!::mkdtemp(pattern.data())) {
        std::perror("fuzz: mkdtemp");
        std::abort();
    }
    path = AnsiString(pattern);
    memoryFd = ::memfd_create("fuzz-input", MFD_CLOEXEC);
    if (memoryFd < 0) {
        std::perror("fuzz: memfd_create");
        std::abort();
    }
    InstallUtils();
    KeepLogHere();
}

void TFuzzFolder::KeepLogHere() const {
    if (Utils) Utils->LogPath = path + "/Debug.txt";
}

TFuzzFolder::~TFuzzFolder() {
    ::close(memoryFd);
    std::error_code ignored;
    std::filesystem::remove_all(path.str(), ignored);
}

TFuzzFolder& TFuzzFolder::Get() {
    static TFuzzFolder folder;
    return folder;
}

AnsiString TFuzzFolder::Write(std::string_view name, std::string_view bytes) const {
    const AnsiString file = path + "/" + AnsiString(name);
    const int fd = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (fd < 0) {
        std::perror("fuzz: open");
        std::abort();
    }
    WriteAll(fd, bytes);
    ::close(fd);
    return file;
}

int TFuzzFolder::Memory(std::string_view bytes) const {
    if (::ftruncate(memoryFd, 0) != 0 || ::lseek(memoryFd, 0, SEEK_SET) != 0) std::abort();
    WriteAll(memoryFd, bytes);
    ::lseek(memoryFd, 0, SEEK_SET);
    return memoryFd;
}

void FuzzCheck(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "fuzz: broken: %s\n", what);
    std::abort();
}
