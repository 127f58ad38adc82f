// A rule file as adding a rule meets it: loaded whole under its lock, the
// new line appended unless it is there, written back whole. Nothing of the
// file may be lost. The row's address and subject that seed the rule also
// go through the Filter Editor's ready-made choices.

#include <fuzzer/FuzzedDataProvider.h>

#include "FuzzFolder.h"
#include "foundation/FileDescriptor.h"
#include "foundation/Utils.h"
#include "rules/RuleRecord.h"
#include "rules/RuleText.h"
#include "settings/Globals.h"

namespace {

// A text of a row: the scan cuts a message at its first NUL, so no row
// text holds one.
AnsiString RowText(FuzzedDataProvider& input) {
    std::string text = input.ConsumeRandomLengthString(300);
    std::erase(text, '\0');
    return AnsiString(std::move(text));
}

void Choices(const AnsiString& address, const AnsiString& subject) {
    TStringList items;
    FillAddressChoices(address, items);
    FillSubjectChoices(subject, items);
    for (const TAddressPart part :
         {TAddressPart::MailerName, TAddressPart::MailerId, TAddressPart::MailerIsp})
        AddressPart(address, part);
    ExtractBetween(address, "<", ">");
    ExtractBetween(subject, subject.SubString(1, 1), "");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const TFuzzFolder& folder = TFuzzFolder::Get();
    static TGlobals globals;
    Globals = &globals;
    FuzzedDataProvider input(data, size);
    const AnsiString address = RowText(input);
    const AnsiString subject = RowText(input);
    const std::string original = input.ConsumeRemainingBytesAsString();
    const AnsiString path = folder.Write("PriorityMail.ini", original);
    Choices(address, subject);

    TStringList before;
    before.LoadFromFile(path);
    RuleRecord rule;
    rule[RuleRecord::Address] = address;
    rule[RuleRecord::Subject] = subject;
    TStringList fields;
    rule.ToList(fields);
    const AnsiString line = Utils->FlattenRuleText(fields.GetText());
    bool added = false;
    try {
        added = globals.AppendRuleLine(path, line);
    } catch (const EFOpenError&) {
        // The list would not hold the file whole: the file stays as it was.
        std::string now;
        FuzzCheck(original.find('\0') != std::string::npos, "only a file with a NUL is refused");
        FuzzCheck(ReadWholeFile(path.c_str(), now) && now == original,
                  "a refused file is left alone");
        return 0;
    }
    TStringList after;
    after.LoadFromFile(path);
    FuzzCheck(after.Count() == before.Count() + (added ? 1 : 0), "only the new line is added");
    for (int i = 0; i < before.Count(); ++i)
        FuzzCheck(after[i] == before[i], "the lines before stay as they were");
    if (added) FuzzCheck(after[after.Count() - 1] == line, "the new line is read back whole");
    RuleRecord::FromList(after);
    return 0;
}
