#pragma once
// Reading a list file that the caller is about to rewrite.

#include "foundation/StringList.h"

// Loads path into list and returns true; returns false, list untouched, when
// no file of that name exists. A file that is there but cannot be read (a
// folder, no permission, too big, a NUL byte behind which the list reads
// nothing) raises EFOpenError: a writer must leave such a file alone rather
// than replace it with what it did not read.
bool LoadExistingListFile(TStringList& list, const AnsiString& path);
