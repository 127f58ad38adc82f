#include "rules/RuleLists.h"

#include "foundation/Utils.h"

namespace {

constexpr TRuleList ruleLists[] = {
    {false, true, "mPriorityMail.ini", "E-mail Priority"},
    {false, false, "PriorityMail.ini", "E-mail Priority"},
    {true, true, "mRejectMail.ini", "E-mail Rejection"},
    {true, false, "RejectMail.ini", "E-mail Rejection"},
};

} // namespace

const TRuleList& FindRuleList(bool reject, bool master) {
    for (const TRuleList& list : ruleLists)
        if (list.Reject == reject && list.Master == master) return list;
    return ruleLists[0]; // not reached: the table holds every pair
}

AnsiString RuleListPath(const TRuleList& list, const AnsiString& sharedFolder,
                        const AnsiString& mailboxFolder) {
    TUtils utils;
    return utils.AddBackslash(list.Master ? sharedFolder : mailboxFolder) + list.FileName;
}
