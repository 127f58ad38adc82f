// Drops the files of a folder from the page cache (posix_fadvise DONTNEED),
// so that the next read of them comes from the disk: the cold-cache runs of
// the benchmark.
//
//   evict FOLDER...

#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: evict FOLDER...\n");
        return 2;
    }
    for (int i = 1; i < argc; ++i) {
        DIR* dir = opendir(argv[i]);
        if (!dir) continue;
        while (const dirent* entry = readdir(dir)) {
            const int fd = openat(dirfd(dir), entry->d_name, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
            if (fd < 0) continue;
            fdatasync(fd);
            posix_fadvise(fd, 0, 0, POSIX_FADV_DONTNEED);
            close(fd);
        }
        closedir(dir);
    }
    return 0;
}
