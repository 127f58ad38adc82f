#pragma once
// RuleRecord: one rule of nine text fields. It travels between the rule
// files and the Filter Editor as a nine-line list (line n holds field n) and
// is stored as one file line with "|" behind every field. The line format is
// read by the suite's other programs and is exact to the byte: no quoting, no
// escaping, a "|" or "=" inside a field is written as it is.

#include <array>

#include "foundation/StringList.h"

struct RuleRecord {
    enum TField {
        Address,
        Subject,
        AlertName,
        AddressRule, // "0" Contains, "1" Exact Match
        SubjectRule,
        ForwardOptions, // forward, mobile phone, three-digit size: "00120"
        ForwardAddress,
        SaveOptions, // save to inbox, delete from server, alternate folder: "000"
        AltFolder,
        FieldCount
    };

    std::array<AnsiString, FieldCount> Fields;

    AnsiString& operator[](TField field) { return Fields[field]; }
    const AnsiString& operator[](TField field) const { return Fields[field]; }

    // The parameter list of nine lines.
    void ToList(TStringList& list) const;
    // Missing lines give empty fields; lines past the ninth are not read.
    static RuleRecord FromList(const TStringList& list);
    // The file line: the nine fields, each followed by "|".
    AnsiString ToLine() const;

    // The option fields in their fixed widths; size is written with three
    // digits, so it must lie in 0..999 (the editor keeps it in 1..200).
    static AnsiString FormatForwardOptions(bool forward, bool toPhone, int size);
    static AnsiString FormatSaveOptions(bool save, bool remove, bool altFolder);
};
