#pragma once
// What `list` and `search` share: the options that pick the mailbox and set
// the list as a user would (filter, column clicks), the opening of that
// mailbox in the main window, and the printing of a list's rows.

#include <string>
#include <vector>

#include "script/FieldEscape.h"

class TInboxFrm;
class TListView;

struct TMailboxOptions {
    std::string folder;
    int filterType = 0;
    std::string filterText;
    std::vector<int> clicks;
    bool timings = false; // how long the scan and each click took, on standard error
};

// Takes --filter TYPE TEXT, --click COLUMN, --timings or the folder at args[i]; advances
// i past what it took. False if args[i] is none of these or is malformed.
bool TakeMailboxOption(const std::vector<std::string>& args, std::size_t& i,
                       TMailboxOptions& options, bool& haveFolder);

// Scans the folder as the window's activation does, then applies the filter
// and the clicks.
void OpenMailbox(TInboxFrm& inbox, const TMailboxOptions& options);

// How printed values are escaped: a terminal gets no control byte of a header
// or a file name (none can steer it), a pipe the documented form.
TEscape StandardOutputEscape();

// One line per row: the caption and the sub-items, tab-separated and escaped.
// Long fields are written in pieces, never copied whole.
void PrintRows(const TListView& list);
