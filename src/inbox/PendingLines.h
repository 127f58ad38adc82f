#pragma once
// Lines bound for a sorted string list, gathered and added a batch at a
// time: a scan of a long mailbox adds a line to each filter list for every
// message, and one by one each would move the lines behind it.

#include <cstddef>
#include <utility>
#include <vector>

#include "foundation/StringList.h"

class TPendingLines {
public:
    explicit TPendingLines(TStringList& list) : list(list) {}

    void Add(AnsiString line) {
        pending.push_back(std::move(line));
        if (pending.size() >= batch) Flush();
    }
    // Adds what waits; before anyone reads the list.
    void Flush() { list.AddLines(pending); }

private:
    static constexpr std::size_t batch = 4096;
    TStringList& list;
    std::vector<AnsiString> pending;
};
