// TGlobals: adding a rule to one of the four rule files.

#include "foundation/FileLock.h"
#include "foundation/ListFile.h"
#include "foundation/Utils.h"
#include "rules/FilterCriteria.h"
#include "rules/RuleLists.h"
#include "rules/RuleRecord.h"
#include "settings/Globals.h"

// The lock is held from the load to the save, so a writer of the suite that
// takes the same lock between the two is never lost. A missing file is made
// and logged; a file that is there but cannot be read is left alone and the
// reason reaches the exception box, since rewriting it would drop its rules.
bool TGlobals::AppendRuleLine(const AnsiString& path, const AnsiString& line) {
    TFileLock lock(path);
    TStringList list;
    if (!LoadExistingListFile(list, path)) {
        Utils->WriteLog("Filter file does not exist:%s", path.c_str());
        list.SaveToFile(path);
    }
    if (list.IndexOf(line) >= 0) return false;
    list.Add(line);
    list.SaveToFile(path);
    return true;
}

// The rule starts from the row's texts and the editor's defaults; only an
// applied rule reaches the file. An added rule and a refused duplicate look
// the same to the user.
void TGlobals::AddRule(const AnsiString& from, const AnsiString& subject, bool reject, bool master,
                       const AnsiString& mailboxFolder) {
    if (!frmFilterCriteria) return;
    const TRuleList& rules = FindRuleList(reject, master);
    frmFilterCriteria->SetCaption(rules.Caption);
    const AnsiString path = RuleListPath(rules, Config.SharedFolder(), mailboxFolder);
    TStringList list;
    for (int i = 0; i < RuleRecord::FieldCount; ++i)
        list.Add("");
    list.PutStrings(RuleRecord::Address, from);
    list.PutStrings(RuleRecord::Subject, subject);
    if (!frmFilterCriteria->EditRule(list)) return;
    AppendRuleLine(path, Utils->FlattenRuleText(list.GetText()));
}
