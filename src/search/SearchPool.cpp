#include "search/SearchPool.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstdlib>
#include <fcntl.h>
#include <mutex>
#include <thread>

#include "foundation/ReadAhead.h"

namespace {

// How far the workers may run ahead of the calling thread, in files, so a
// slow consumer does not pile up the hits of the whole list.
constexpr std::size_t aheadLimit = 1024;

// How many files are open and on their way from the disk ahead of the
// workers: a cold file is then read while the ones before it are searched,
// and the descriptors stay few.
constexpr TReadAhead::TOptions openAhead{.depth = 64, .hint = true};

struct TSlot {
    std::vector<TLineHit> hits;
    bool ready = false;
};

class TSharedRun {
public:
    TSharedRun(const std::vector<std::string>& paths, const TSearchMatcher& matcher)
        : paths(paths), matcher(matcher), slots(paths.size()), ahead(AT_FDCWD, paths, openAhead) {}

    void Work() {
        TMessageSearch search(matcher);
        for (;;) {
            const std::size_t i = next.fetch_add(1);
            if (i >= paths.size()) return;
            WaitForRoom(i);
            std::vector<TLineHit> hits;
            search.SearchOpenFile(ahead.Take(i).Get(), hits);
            std::lock_guard lock(mutex);
            slots[i].hits = std::move(hits);
            slots[i].ready = true;
            changed.notify_all();
        }
    }

    void Consume(const TTakeHits& take) {
        for (std::size_t i = 0; i < paths.size(); ++i) {
            std::vector<TLineHit> hits;
            {
                std::unique_lock lock(mutex);
                changed.wait(lock, [&] { return slots[i].ready; });
                hits = std::move(slots[i].hits);
                taken = i + 1;
                changed.notify_all();
            }
            if (!hits.empty()) take(i, hits);
        }
    }

private:
    void WaitForRoom(std::size_t i) {
        std::unique_lock lock(mutex);
        changed.wait(lock, [&] { return i < taken + aheadLimit; });
    }

    const std::vector<std::string>& paths;
    const TSearchMatcher& matcher;
    std::vector<TSlot> slots;
    std::atomic<std::size_t> next{0};
    std::size_t taken = 0;
    std::mutex mutex;
    std::condition_variable changed;
    TReadAhead ahead;
};

} // namespace

void SearchInFiles(const std::vector<std::string>& paths, const TSearchMatcher& matcher,
                   unsigned workers, const TTakeHits& take) {
    if (!matcher.CanMatch() || paths.empty()) return;
    if (workers <= 1 || paths.size() == 1) {
        TMessageSearch search(matcher);
        TReadAhead ahead(AT_FDCWD, paths, openAhead);
        std::vector<TLineHit> hits;
        for (std::size_t i = 0; i < paths.size(); ++i) {
            hits.clear();
            search.SearchOpenFile(ahead.Take(i).Get(), hits);
            if (!hits.empty()) take(i, hits);
        }
        return;
    }
    TSharedRun run(paths, matcher);
    std::vector<std::jthread> threads;
    const auto count = static_cast<unsigned>(std::min<std::size_t>(workers, paths.size()));
    for (unsigned t = 0; t < count; ++t)
        threads.emplace_back([&run] { run.Work(); });
    run.Consume(take);
}

unsigned SearchWorkers() {
    if (const char* env = std::getenv("VELLUMDESK_SEARCH_WORKERS")) {
        const long n = std::strtol(env, nullptr, 10);
        if (n >= 1 && n <= 64) return static_cast<unsigned>(n);
    }
    return std::clamp(std::thread::hardware_concurrency(), 1u, 8u);
}
