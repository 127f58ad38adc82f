// The floor of the benchmark: lists a folder and reads every .eml file whole
// through a reused 128 KiB buffer per thread, touching nothing, and prints
// the byte count.
//
//   readall [--threads N] [--ahead N] FOLDER
//
// --threads: that many threads take the files in turn (the scan's own count).
// --ahead: one thread that first opens the next N files and asks the kernel
// to read them ahead (posix_fadvise WILLNEED), the floor for cold files.

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <dirent.h>
#include <fcntl.h>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

unsigned long long ReadFd(int fd, std::vector<char>& buffer) {
    unsigned long long total = 0;
    ssize_t n;
    while ((n = read(fd, buffer.data(), buffer.size())) > 0)
        total += static_cast<unsigned long long>(n);
    return total;
}

unsigned long long ReadThreads(int dirFd, const std::vector<std::string>& names, int threads) {
    std::atomic<std::size_t> next{0};
    std::atomic<unsigned long long> total{0};
    auto work = [&] {
        std::vector<char> buffer(128 * 1024);
        for (std::size_t i; (i = next++) < names.size();) {
            const int fd = openat(dirFd, names[i].c_str(), O_RDONLY | O_CLOEXEC);
            if (fd < 0) continue;
            total += ReadFd(fd, buffer);
            close(fd);
        }
    };
    std::vector<std::thread> pool;
    for (int t = 1; t < threads; ++t)
        pool.emplace_back(work);
    work();
    for (std::thread& t : pool)
        t.join();
    return total;
}

unsigned long long ReadAhead(int dirFd, const std::vector<std::string>& names, std::size_t ahead) {
    std::vector<char> buffer(128 * 1024);
    std::deque<int> open;
    std::size_t opened = 0;
    unsigned long long total = 0;
    for (std::size_t i = 0; i < names.size(); ++i) {
        for (; opened < names.size() && opened <= i + ahead; ++opened) {
            const int fd = openat(dirFd, names[opened].c_str(), O_RDONLY | O_CLOEXEC);
            if (fd >= 0) posix_fadvise(fd, 0, 0, POSIX_FADV_WILLNEED);
            open.push_back(fd);
        }
        const int fd = open.front();
        open.pop_front();
        if (fd < 0) continue;
        total += ReadFd(fd, buffer);
        close(fd);
    }
    return total;
}

} // namespace

int main(int argc, char** argv) {
    int threads = 1;
    long ahead = 0;
    int arg = 1;
    for (; arg + 1 < argc && argv[arg][0] == '-'; arg += 2) {
        if (std::strcmp(argv[arg], "--threads") == 0)
            threads = std::max(1, std::atoi(argv[arg + 1]));
        else if (std::strcmp(argv[arg], "--ahead") == 0)
            ahead = std::atol(argv[arg + 1]);
        else
            break;
    }
    if (arg + 1 != argc) {
        std::fprintf(stderr, "usage: readall [--threads N] [--ahead N] FOLDER\n");
        return 2;
    }
    DIR* dir = opendir(argv[arg]);
    if (!dir) return 1;
    std::vector<std::string> names;
    while (const dirent* entry = readdir(dir)) {
        const std::size_t length = std::strlen(entry->d_name);
        if (length >= 4 && std::strcmp(entry->d_name + length - 4, ".eml") == 0)
            names.emplace_back(entry->d_name);
    }
    const int dirFd = dirfd(dir);
    const unsigned long long total = ahead > 0
                                         ? ReadAhead(dirFd, names, static_cast<std::size_t>(ahead))
                                         : ReadThreads(dirFd, names, threads);
    closedir(dir);
    std::printf("%llu\n", total);
    return 0;
}
