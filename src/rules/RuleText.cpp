#include "rules/RuleText.h"

namespace {

constexpr int partLimit = 255;
constexpr int wordLimit = 100;

// Every unbroken run of two or more of items 1..n-1 gets an item of its
// own, grouped by first part, shortest first. Item 0 takes no part.
void JoinRuns(TStringList& items, const char* format) {
    const int n = items.Count();
    for (int i = 1; i < n - 1; ++i) {
        AnsiString run = items[i];
        for (int j = i + 1; j < n; ++j) {
            run.cat_sprintf(format, items[j].c_str());
            items.Add(run);
        }
    }
}

} // namespace

AnsiString ExtractBetween(const AnsiString& source, const AnsiString& startDelim,
                          const AnsiString& endDelim) {
    int start = source.Pos(startDelim) + 1;
    if (start < 2) start = 1;
    const AnsiString tail = source.SubString(start, partLimit);
    int length = tail.Pos(endDelim) - 1;
    if (length < 1) length = partLimit;
    if (start == 1 && length == partLimit) return {};
    return source.SubString(start, length).Trim();
}

AnsiString AddressPart(const AnsiString& address, TAddressPart part) {
    switch (part) {
    case TAddressPart::MailerName:
        return ExtractBetween(address, "\"", "\"");
    case TAddressPart::MailerId:
        return ExtractBetween(address, "<", "@");
    case TAddressPart::MailerIsp:
        return ExtractBetween(address, "@", ">");
    }
    return {};
}

int FillAddressChoices(const AnsiString& givenAddress, TStringList& items) {
    items.Clear();
    const AnsiString address = givenAddress.Trim();
    items.Add(address);
    for (TAddressPart part :
         {TAddressPart::MailerName, TAddressPart::MailerId, TAddressPart::MailerIsp}) {
        const AnsiString text = AddressPart(address, part);
        if (!text.IsEmpty()) items.Add(text);
    }
    JoinRuns(items, ";%s");
    return items.Count();
}

// Each pass puts a blank in front of the rest, takes the first word between
// two blanks and cuts it off; a one-word subject stops at once, since its
// word is the whole subject.
int FillSubjectChoices(const AnsiString& givenSubject, TStringList& items) {
    const AnsiString subject = givenSubject.Trim();
    items.Clear();
    items.Add(subject);
    AnsiString rest = subject + " ";
    while (!rest.IsEmpty()) {
        rest.Insert(" ", 1);
        const AnsiString word = ExtractBetween(rest, " ", " ");
        if (word.IsEmpty() || word == subject) break;
        rest.Delete(2, word.Length());
        rest = rest.TrimLeft();
        items.Add(word.Trim());
        if (items.Count() > wordLimit) break;
    }
    JoinRuns(items, " %s");
    return items.Count();
}
