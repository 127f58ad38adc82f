#pragma once
// Reads one message file into the texts of its row. A worker of the scan
// owns one reader and keeps its buffer from file to file; a message larger
// than the buffer's limit streams through it instead of growing it, so one
// huge file costs no more memory than a small one.

#include <cstddef>

#include "inbox/MessageStream.h"
#include "inbox/MessageText.h"
#include "inbox/ScannedMessage.h"

class TMessageReader {
public:
    // Most messages fit; the few larger ones stream, and each worker's buffer
    // stays small.
    static constexpr std::size_t defaultLimit = 4 * 1024 * 1024;
    explicit TMessageReader(std::size_t limit = defaultLimit) : limit(limit) {}

    // Opens name in the folder dirFd (or a full path with AT_FDCWD) for
    // reading, never waiting on what is not a plain file.
    static int Open(int dirFd, const char* name);
    // Reads the open file fd into out; fd stays open. A folder or an empty
    // file is NotListed: a listing by name alone could not tell.
    void Read(int fd, TScannedMessage& out);
    // Reads the file fd opened from name in dirFd, or -1 if it could not be
    // opened: then the name is looked at, and it is NotListed when it names
    // nothing, a folder or an empty file, else Unreadable.
    void Read(int dirFd, const char* name, int fd, TScannedMessage& out);

private:
    bool ReadWhole(int fd, std::size_t size, TScannedMessage& out);
    bool Stream(int fd, TScannedMessage& out);

    std::size_t limit;
    TMessageText text;
    TMessageStream stream;
};
