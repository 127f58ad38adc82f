#pragma once
// What the scan takes from one message file: the texts of its row, worked out
// away from the window, and the identity of the file that was read.

#include <cstdint>
#include <string>
#include <sys/types.h>

struct TScannedMessage {
    enum class TState {
        NotListed,  // a folder, an empty file or a name with nothing behind it
        Unreadable, // not opened, not a plain file, or a read error
        NoLines,    // empty, or a NUL in its first byte
        Read,
    };
    TState State = TState::Unreadable;
    std::string From;
    std::string Subject;
    std::string Date;     // already normalised
    std::string SentDate; // the Date header as the message has it
    std::string ContentType;
    std::string Attachments; // joined by ", "
    // How often the attachment walk went round; the window yields as often.
    int WalkPasses = 0;
    std::uint32_t Size = 0;
    dev_t Device = 0;
    ino_t Inode = 0;
};
