#include "rules/RuleRecord.h"

#include "foundation/Utils.h"

void RuleRecord::ToList(TStringList& list) const {
    list.Clear();
    for (const AnsiString& field : Fields)
        list.Add(field);
}

RuleRecord RuleRecord::FromList(const TStringList& list) {
    RuleRecord rule;
    for (int i = 0; i < FieldCount && i < list.Count(); ++i)
        rule.Fields[static_cast<std::size_t>(i)] = list[i];
    return rule;
}

// The same road the rule takes from the editor to the file: the list's Text,
// flattened.
AnsiString RuleRecord::ToLine() const {
    TStringList list;
    ToList(list);
    TUtils utils;
    return utils.FlattenRuleText(list.GetText());
}

AnsiString RuleRecord::FormatForwardOptions(bool forward, bool toPhone, int size) {
    AnsiString text;
    return text.sprintf("%d%d%3.3d", forward ? 1 : 0, toPhone ? 1 : 0, size);
}

AnsiString RuleRecord::FormatSaveOptions(bool save, bool remove, bool altFolder) {
    AnsiString text;
    return text.sprintf("%d%d%d", save ? 1 : 0, remove ? 1 : 0, altFolder ? 1 : 0);
}
