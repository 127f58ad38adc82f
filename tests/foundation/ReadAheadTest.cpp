#include <algorithm>
#include <atomic>
#include <dirent.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <vector>

#include "foundation/ReadAhead.h"
#include "support/TempFolder.h"

namespace {

int OpenFileCount() {
    int count = 0;
    if (DIR* dir = ::opendir("/proc/self/fd")) {
        while (::readdir(dir))
            ++count;
        ::closedir(dir);
    }
    return count;
}

std::string Content(const TFileDescriptor& file) {
    char buffer[64];
    const ssize_t got = file.IsOpen() ? ::read(file.Get(), buffer, sizeof buffer) : -1;
    return got < 0 ? "<not open>" : std::string(buffer, static_cast<std::size_t>(got));
}

// Each file holds its own name; a few names are no plain file or missing.
struct TListing {
    TTempFolder folder;
    std::vector<std::string> names;
    std::vector<std::string> expected;

    explicit TListing(std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            std::string name = "m" + std::to_string(i) + ".eml";
            if (i % 7 == 3) {
                expected.push_back("<not open>"); // missing
            } else if (i % 11 == 5) {
                ::mkfifo((folder / name).c_str(), 0600);
                expected.push_back(""); // opened without waiting, read as empty
            } else {
                folder.Write(name, name);
                expected.push_back(name);
            }
            names.push_back(std::move(name));
        }
    }
};

// Every index gives its own file, whatever the depth, the number of takers and
// neighbours taken the other way round; no descriptor stays open afterwards,
// and no more than the depth wait open.
TEST(ReadAhead, GivesEachIndexItsOwnFileAndKeepsTheDescriptorsBounded) {
    const TListing listing(200);
    const int dirFd = ::open(listing.folder.Path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ASSERT_GE(dirFd, 0);
    const int before = OpenFileCount();
    struct TCase {
        std::size_t depth;
        unsigned takers;
        bool swapped; // neighbours taken the other way round
        bool hint;
    } cases[] = {{64, 1, false, true},   {1, 1, false, true}, {8, 4, false, true},
                 {500, 2, false, false}, {16, 1, true, true}, {16, 3, true, true}};
    for (const TCase& c : cases) {
        std::vector<std::string> got(listing.names.size());
        {
            TReadAhead ahead(dirFd, listing.names, {.depth = c.depth, .hint = c.hint});
            EXPECT_LE(OpenFileCount() - before, static_cast<int>(c.depth));
            std::vector<std::size_t> order(listing.names.size());
            for (std::size_t i = 0; i < order.size(); ++i)
                order[i] = i;
            if (c.swapped)
                for (std::size_t i = 0; i + 1 < order.size(); i += 2)
                    std::swap(order[i], order[i + 1]);
            std::atomic<std::size_t> next{0};
            std::vector<std::jthread> takers;
            for (unsigned t = 0; t < c.takers; ++t)
                takers.emplace_back([&] {
                    for (std::size_t k; (k = next++) < order.size();)
                        got[order[k]] = Content(ahead.Take(order[k]));
                });
            takers.clear();
            EXPECT_LE(OpenFileCount() - before, static_cast<int>(c.depth));
        }
        EXPECT_EQ(got, listing.expected) << "depth " << c.depth << ", takers " << c.takers;
        EXPECT_EQ(OpenFileCount(), before) << "depth " << c.depth;
    }
    ::close(dirFd);
}

TEST(ReadAhead, StopClosesWhatWaitsAndLaterTakesGiveNothing) {
    const TListing listing(40);
    const int before = OpenFileCount();
    std::vector<std::string> paths;
    for (const std::string& name : listing.names)
        paths.push_back(listing.folder / name);
    TReadAhead ahead(AT_FDCWD, paths, {.depth = 16});
    EXPECT_EQ(Content(ahead.Take(0)), listing.expected[0]);
    ahead.Stop();
    EXPECT_EQ(OpenFileCount(), before);
    EXPECT_FALSE(ahead.Take(1).IsOpen());
    ahead.Stop();
}

} // namespace
