#pragma once
// The text work of the Filter Editor, which needs no screen: the parts of an
// address and the runs of words of a subject that the editor offers as
// ready-made criteria.

#include "foundation/StringList.h"

// The text between two delimiters, trimmed, with both ends forgiving: no
// start delimiter means from the beginning, no end delimiter means to the
// end (255 bytes at most). Empty when neither delimiter did anything.
AnsiString ExtractBetween(const AnsiString& source, const AnsiString& startDelim,
                          const AnsiString& endDelim);

// The three parts of an address that the quick edits cut out.
enum class TAddressPart { MailerName, MailerId, MailerIsp };
AnsiString AddressPart(const AnsiString& address, TAddressPart part);

// Refill items and return their number. Address: the trimmed address, its
// non-empty parts, then every run of two or more parts joined with ";".
// Subject: the trimmed subject, its words (100 at most), then every run of
// two or more words joined with a blank.
int FillAddressChoices(const AnsiString& givenAddress, TStringList& items);
int FillSubjectChoices(const AnsiString& givenSubject, TStringList& items);
