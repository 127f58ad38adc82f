// TInboxFrm: the text search over the listed messages, the current mailbox
// or every mailbox, and the Search button that opens the search window.

#include <cinttypes>
#include <cstdio>

#include "foundation/Utils.h"
#include "inbox/InboxForm.h"
#include "search/MailSearch.h"
#include "search/SearchPool.h"
#include "settings/PanelButtons.h"

namespace {

constexpr int fileNameColumn = 5; // sub-item of the File Name column

// Adds folder + each name of the folder's message files; true if any.
bool AddFolderFiles(const AnsiString& folder, std::vector<std::string>& paths) {
    TStringList names;
    const AnsiString prefix = Utils->AddBackslash(folder);
    if (!Utils->SearchFiles(prefix + "*.eml", faArchive, names, false)) return false;
    for (const AnsiString& name : names)
        paths.push_back((prefix + name).str());
    return true;
}

} // namespace

bool TInboxFrm::GatherSearchPaths(unsigned short where, std::vector<std::string>& paths) const {
    bool found = false;
    switch (where) {
    case 0: {
        const AnsiString prefix = Utils->AddBackslash(MailboxFolder);
        for (int i = 0; i < lvEmailList.Count(); ++i) {
            const auto& subItems = lvEmailList.Item(i).SubItems;
            const AnsiString name = static_cast<int>(subItems.size()) > fileNameColumn
                                        ? subItems[fileNameColumn]
                                        : AnsiString();
            paths.push_back((prefix + name).str());
            found = true;
        }
        break;
    }
    case 1:
        found = AddFolderFiles(MailboxFolder, paths);
        break;
    case 2:
        // An empty line is no mailbox; a bare name has no value, so its mask
        // is the bare "*.eml" of the working folder, the data folder.
        for (int i = 0; i < Mailboxes.Count(); ++i)
            if (!Mailboxes[i].IsEmpty())
                found = AddFolderFiles(Mailboxes.GetValue(Mailboxes.GetName(i)), paths) || found;
        break;
    default:
        break;
    }
    return found;
}

void TInboxFrm::EmitSearchHits(AnsiString text, bool caseSensitive, bool wholeWord,
                               unsigned short where,
                               const std::function<void(std::string_view)>& emit) const {
    std::vector<std::string> paths;
    if (!GatherSearchPaths(where, paths)) return;
    if (wholeWord) text = " " + text + " ";
    const TSearchMatcher matcher(text.view(), caseSensitive);
    std::string line;
    SearchInFiles(paths, matcher, SearchWorkers(),
                  [&](std::size_t index, const std::vector<TLineHit>& found) {
                      for (const TLineHit& hit : found) {
                          char tail[64];
                          std::snprintf(tail, sizeof tail, "=%.4" PRId64 "-%.3" PRId64, hit.line,
                                        hit.position);
                          line = paths[index];
                          line += tail;
                          emit(line);
                      }
                  });
}

void TInboxFrm::AppendSearchHits(AnsiString text, bool caseSensitive, bool wholeWord,
                                 unsigned short where, TStringList& hits) const {
    EmitSearchHits(std::move(text), caseSensitive, wholeWord, where,
                   [&hits](std::string_view line) { hits.Add(AnsiString(line)); });
}

bool TInboxFrm::SearchMessages(AnsiString text, bool caseSensitive, bool wholeWord,
                               unsigned short where) {
    if (frmMailSearch)
        AppendSearchHits(std::move(text), caseSensitive, wholeWord, where,
                         frmMailSearch->SearchHits);
    return true;
}

void TInboxFrm::LMDpfSearchClick() {
    if (!PButtons->ButtonPress(LMDpfSearch)) return;
    if (frmMailSearch) frmMailSearch->OpenSearch();
    PButtons->ButtonRelease(LMDpfSearch);
}
