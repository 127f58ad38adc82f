#pragma once
// The scan's workers: they open, read and parse the files of a listing
// ahead of the window, each into a reused record, while the window's thread
// takes the records strictly in list order. A bounded window of records lies
// ahead, so memory does not grow with the mailbox. The window's thread is the
// only one that sees a record it took, until it takes the next.

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
    bool HasRoom() const;

    TFileDescriptor folder;
    const std::vector<std::string>& names;
    std::vector<TScannedMessage> records;
    std::vector<std::size_t> recordIndex; // which name each record holds
    std::size_t batch;                    // records the window's thread waits for at once
    std::mutex mutex;
    // Each side is woken only when it waits and what it waits for is there:
    // a wake-up costs a system call, and most takes find their record done.
    std::condition_variable roomFreed;
    std::condition_variable recordDone;
    int workersWaiting = 0;
    std::size_t awaitedFirst, awaitedLast; // none while the window's thread runs
    std::size_t nextClaim = 0;
    std::size_t held = 0; // the index the window's thread holds
    bool stopping = false;
    std::unique_ptr<TReadAhead> readAhead;
    std::vector<std::thread> workers;
};
