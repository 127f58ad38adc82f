// The floor of the search benchmark: reads every file named in a list (one
// path a line) whole through one reused 128 KiB buffer per thread, touching
// nothing, on as many threads as asked, and prints the byte count.

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstdio>
#include <fcntl.h>
#include <fstream>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: readfiles LIST THREADS\n");
        return 2;
    }
    std::vector<std::string> paths;
    std::ifstream list(argv[1]);
    for (std::string line; std::getline(list, line);)
        paths.push_back(line);
    const int threads = std::max(1, std::atoi(argv[2]));
    std::atomic<std::size_t> next{0};
    std::atomic<unsigned long long> total{0};
    auto work = [&] {
        std::vector<char> buffer(128 * 1024);
        unsigned long long mine = 0;
        for (std::size_t i; (i = next.fetch_add(1)) < paths.size();) {
            const int fd = open(paths[i].c_str(), O_RDONLY | O_CLOEXEC);
            if (fd < 0) continue;
            ssize_t n;
            while ((n = read(fd, buffer.data(), buffer.size())) > 0)
                mine += static_cast<unsigned long long>(n);
            close(fd);
        }
        total += mine;
    };
    std::vector<std::thread> pool;
    for (int t = 1; t < threads; ++t)
        pool.emplace_back(work);
    work();
    for (std::thread& t : pool)
        t.join();
    std::printf("%llu\n", total.load());
    return 0;
}
