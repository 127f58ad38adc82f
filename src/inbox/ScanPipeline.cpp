#include "inbox/ScanPipeline.h"

#include <algorithm>
#include <chrono>
#include <fcntl.h>

#include "inbox/MessageReader.h"

namespace {

constexpr std::size_t none = static_cast<std::size_t>(-1);
constexpr auto batchPatience = std::chrono::milliseconds(4);

} // namespace

int TScanPipeline::DefaultWorkers() {
    return std::max(2, static_cast<int>(std::thread::hardware_concurrency()));
}

TScanPipeline::TScanPipeline(int dirFd, const std::vector<std::string>& names, TOptions options)
    : folder(dirFd >= 0 ? ::fcntl(dirFd, F_DUPFD_CLOEXEC, 0) : -1), names(names),
      awaitedFirst(none), awaitedLast(none) {
    const int count = options.workers > 0 ? options.workers : DefaultWorkers();
    // Enough records that no worker waits for the window while the others
    // run, and that the window's thread takes a good batch at each wake-up.
    const std::size_t window = 16 * static_cast<std::size_t>(count) + 16;
    batch = window / 4;
    records.resize(window);
    recordIndex = std::make_unique<std::atomic<std::size_t>[]>(window);
    for (std::size_t i = 0; i < window; ++i)
        recordIndex[i] = none;
    readAhead = std::make_unique<TReadAhead>(
        folder.IsOpen() ? folder.Get() : AT_FDCWD, names,
        TReadAhead::TOptions{.depth = std::max(options.readAhead, static_cast<std::size_t>(count)),
                             .hint = options.hint});
    for (int i = 0; i < count; ++i)
        workers.emplace_back([this] { Work(); });
}

TScanPipeline::~TScanPipeline() {
    stopping = true;
    Wake(roomFreed, true);
    readAhead->Stop();
    for (std::thread& worker : workers)
        worker.join();
}

void TScanPipeline::Wake(std::condition_variable& wake, bool all) {
    { std::lock_guard lock(mutex); }
    if (all)
        wake.notify_all();
    else
        wake.notify_one();
}

bool TScanPipeline::HasRoom(std::size_t index) const {
    return index < held + records.size();
}

void TScanPipeline::Work() {
    TMessageReader reader;
    for (;;) {
        const std::size_t index = nextClaim++;
        if (index >= names.size()) return;
        if (!HasRoom(index)) {
            std::unique_lock lock(mutex);
            ++workersWaiting;
            roomFreed.wait(lock, [&] { return stopping || HasRoom(index); });
            --workersWaiting;
        }
        if (stopping) return;
        TScannedMessage& record = records[index % records.size()];
        TFileDescriptor file = readAhead->Take(index);
        try {
            reader.Read(folder.IsOpen() ? folder.Get() : AT_FDCWD, names[index].c_str(), file.Get(),
                        record);
        } catch (const std::exception&) {
            // Out of memory on one file costs that file its row.
            record.State = TScannedMessage::TState::Unreadable;
        }
        file.Close();
        recordIndex[index % records.size()] = index;
        if (index == awaitedFirst || index == awaitedLast) Wake(recordDone, false);
    }
}

// A take that finds its record not done yet waits for a few more, so that
// the window's thread, quicker than the workers, does not sleep and wake
// once per file. Waiting workers are woken once a batch, not at every take.
const TScannedMessage& TScanPipeline::Take(std::size_t index) {
    const std::size_t slot = index % records.size();
    held = index;
    if (workersWaiting > 0 && index % batch == 0) Wake(roomFreed, true);
    const auto done = [&](std::size_t at) { return recordIndex[at % records.size()] == at; };
    if (done(index)) return records[slot];
    std::unique_lock lock(mutex);
    awaitedFirst = index;
    awaitedLast = std::min(index + batch, names.size()) - 1;
    // Files slow to come, from a cold disk, hold up no more than the one
    // taken, after a short while.
    if (!recordDone.wait_for(lock, batchPatience,
                             [&] { return done(index) && done(awaitedLast); })) {
        awaitedLast = index;
        recordDone.wait(lock, [&] { return done(index); });
    }
    awaitedFirst = awaitedLast = none;
    return records[slot];
}
