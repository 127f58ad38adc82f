// The floor of the benchmark: lists a folder and reads every .eml file whole
// through one reused 128 KiB buffer, touching nothing, and prints the byte count.

#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: readall FOLDER\n");
        return 2;
    }
    DIR* dir = opendir(argv[1]);
    if (!dir) return 1;
    static char buffer[128 * 1024];
    unsigned long long total = 0;
    const int dirFd = dirfd(dir);
    while (const dirent* entry = readdir(dir)) {
        const std::size_t length = std::strlen(entry->d_name);
        if (length < 4 || std::strcmp(entry->d_name + length - 4, ".eml") != 0) continue;
        const int fd = openat(dirFd, entry->d_name, O_RDONLY | O_CLOEXEC);
        if (fd < 0) continue;
        ssize_t n;
        while ((n = read(fd, buffer, sizeof buffer)) > 0)
            total += static_cast<unsigned long long>(n);
        close(fd);
    }
    closedir(dir);
    std::printf("%llu\n", total);
    return 0;
}
