#pragma once
// An advisory lock that a writer of a list file holds from the moment it
// reads the file to the moment its new text has replaced it, so that two
// writers that both take it never lose each other's lines.
//
// The lock is taken on a file of its own beside the list file (the list
// file's name + ".lock"): the save renames a new file over the list file,
// and a lock on the replaced inode would protect nothing. Lock files are
// never removed, since removing one while a writer waits on it would let a
// third writer lock a new file beside it.

#include <chrono>

#include "foundation/AnsiString.h"
#include "foundation/FileDescriptor.h"

class TFileLock {
public:
    // Waits for the lock of path up to wait. A folder where no lock file can
    // be made (missing, read-only) gives no lock: whatever the caller then
    // writes there fails on its own. Another writer that holds the lock for
    // longer than wait raises EFCreateError, so the caller writes nothing.
    explicit TFileLock(const AnsiString& path,
                       std::chrono::milliseconds wait = std::chrono::seconds(10));
    ~TFileLock() = default;
    TFileLock(const TFileLock&) = delete;
    TFileLock& operator=(const TFileLock&) = delete;

    bool Held() const { return file.IsOpen(); }
    static AnsiString LockPath(const AnsiString& path) { return path + ".lock"; }

private:
    TFileDescriptor file;
};
