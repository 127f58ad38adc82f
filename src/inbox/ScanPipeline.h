#pragma once
// The scan's workers: they open, read and parse the files of a listing
// ahead of the window, each into a reused record, while the window's thread
// takes the records strictly in list order. A bounded window of records lies
// ahead, so memory does not grow with the mailbox. The window's thread is the
// only one that sees a record it took, until it takes the next.

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "foundation/ReadAhead.h"
#include "inbox/ScannedMessage.h"

class TScanPipeline {
public:
    struct TOptions {
        int workers = 0; // 0: one per core, at least two
        std::size_t readAhead = 64;
        bool hint = true;
    };
    // names are opened relative to dirFd (AT_FDCWD for full paths); the
    // pipeline keeps its own handle on that folder. names must outlive it.
    TScanPipeline(int dirFd, const std::vector<std::string>& names, TOptions options);
    ~TScanPipeline();
    TScanPipeline(const TScanPipeline&) = delete;
    TScanPipeline& operator=(const TScanPipeline&) = delete;

    std::size_t Count() const { return names.size(); }
    const std::string& Name(std::size_t index) const { return names[index]; }
    // The record of names[index]; indexes must come in increasing order.
    // It stays valid until the next Take.
    const TScannedMessage& Take(std::size_t index);

    static int DefaultWorkers();

private:
    void Work();
    // Room for the record of index: the window's thread is done with the one
    // before it in the same slot.
    bool HasRoom(std::size_t index) const;
    // Wakes those waiting on wake, if any; taking the lock first means none
    // is between its test and its sleep.
    void Wake(std::condition_variable& wake, bool all);

    TFileDescriptor folder;
    const std::vector<std::string>& names;
    std::vector<TScannedMessage> records;
    // Which index each record holds. Claims, progress and records pass
    // between the threads through atomics; the lock is only taken to sleep
    // or to wake a sleeper, since most takes find their record done.
    std::unique_ptr<std::atomic<std::size_t>[]> recordIndex;
    std::size_t batch; // records the window's thread waits for at once
    std::atomic<std::size_t> nextClaim{0};
    std::atomic<std::size_t> held{0};                   // the index the window's thread holds
    std::atomic<std::size_t> awaitedFirst, awaitedLast; // none while the window's thread runs
    std::atomic<int> workersWaiting{0};
    std::atomic<bool> stopping{false};
    std::mutex mutex;
    std::condition_variable roomFreed;
    std::condition_variable recordDone;
    std::unique_ptr<TReadAhead> readAhead;
    std::vector<std::thread> workers;
};
