#pragma once
// SearchInFiles: the hits of one text in a list of files, on worker threads.
// Workers read and search files ahead; the calling thread receives each
// file's hits in the order of the list, so the outcome is the same with any
// number of workers. The callback runs on the calling thread only.

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "search/MessageSearch.h"

using TTakeHits = std::function<void(std::size_t index, const std::vector<TLineHit>& hits)>;

void SearchInFiles(const std::vector<std::string>& paths, const TSearchMatcher& matcher,
                   unsigned workers, const TTakeHits& take);

// The number of workers a search uses: VELLUMDESK_SEARCH_WORKERS if set
// (1 to 64), else the number of cores, at most 8.
unsigned SearchWorkers();
