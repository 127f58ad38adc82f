#pragma once
// The four rule lists: priority or rejection, for the whole suite (Master,
// in the shared folder) or for one mailbox (in the mailbox's own folder).

#include "foundation/AnsiString.h"

struct TRuleList {
    bool Reject;
    bool Master;
    const char* FileName;
    const char* Caption; // of the Filter Editor while it edits a rule of this list
};

const TRuleList& FindRuleList(bool reject, bool master);

// The path of a list: the shared folder for a Master list (whatever mailbox
// is open), mailboxFolder for the others, joined with AddBackslash.
AnsiString RuleListPath(const TRuleList& list, const AnsiString& sharedFolder,
                        const AnsiString& mailboxFolder);
