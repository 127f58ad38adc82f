#include "inbox/ScanPipeline.h"

#include <algorithm>
#include <fcntl.h>

#include "inbox/MessageReader.h"

namespace {

constexpr std::size_t none = static_cast<std::size_t>(-1);

} // namespace

int TScanPipeline::DefaultWorkers() {
    return std::max(2, static_cast<int>(std::thread::hardware_concurrency()));
}

TScanPipeline::TScanPipeline(int dirFd, const std::vector<std::string>& names, TOptions options)
    : folder(dirFd >= 0 ? ::fcntl(dirFd, F_DUPFD_CLOEXEC, 0) : -1), names(names),
      awaitedFirst(none), awaitedLast(none) {
    const int count = options.workers > 0 ? options.workers : DefaultWorkers();
    // Enough records that no worker waits for the window while the others run.
    const std::size_t window = 4 * static_cast<std::size_t>(count) + 8;
    batch = window / 4;
    records.resize(window);
    recordIndex.assign(window, none);
    readAhead = std::make_unique<TReadAhead>(
        folder.IsOpen() ? folder.Get() : AT_FDCWD, names,
        TReadAhead::TOptions{.depth = std::max(options.readAhead, static_cast<std::size_t>(count)),
                             .hint = options.hint,
                             .open = TMessageReader::Open});
    for (int i = 0; i < count; ++i)
        workers.emplace_back([this] { Work(); });
}

TScanPipeline::~TScanPipeline() {
    {
        std::lock_guard lock(mutex);
        stopping = true;
    }
    roomFreed.notify_all();
    readAhead->Stop();
    for (std::thread& worker : workers)
        worker.join();
}

bool TScanPipeline::HasRoom() const {
    return stopping || nextClaim >= names.size() || nextClaim < held + records.size();
}

void TScanPipeline::Work() {
    TMessageReader reader;
    for (;;) {
        std::size_t index = 0;
        {
            std::unique_lock lock(mutex);
            if (!HasRoom()) {
                ++workersWaiting;
                roomFreed.wait(lock, [&] { return HasRoom(); });
                --workersWaiting;
            }
            if (stopping || nextClaim >= names.size()) return;
            index = nextClaim++;
        }
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
        bool awaited = false;
        {
            std::lock_guard lock(mutex);
            recordIndex[index % records.size()] = index;
            awaited = index == awaitedFirst || index == awaitedLast;
        }
        if (awaited) recordDone.notify_one();
    }
}

// A take that finds its record not done yet waits for a few more, so that
// the window's thread, quicker than the workers, does not sleep and wake
// once per file.
const TScannedMessage& TScanPipeline::Take(std::size_t index) {
    const std::size_t slot = index % records.size();
    std::unique_lock lock(mutex);
    held = index;
    if (workersWaiting > 0 && nextClaim + batch <= held + records.size()) roomFreed.notify_all();
    if (recordIndex[slot] == index) return records[slot];
    awaitedFirst = index;
    awaitedLast = std::min(index + batch, names.size()) - 1;
    const std::size_t lastSlot = awaitedLast % records.size();
    recordDone.wait(
        lock, [&] { return recordIndex[slot] == index && recordIndex[lastSlot] == awaitedLast; });
    awaitedFirst = awaitedLast = none;
    return records[slot];
}
