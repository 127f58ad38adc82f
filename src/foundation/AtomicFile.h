#pragma once
// The whole-file save of the program: the new bytes go to a temporary file
// in the same folder, reach the disk (fsync), and are renamed over the old
// file, so that a crash or a full disk leaves the old file or the new one,
// never a mix. A symbolic link keeps pointing at the file it named, which
// receives the new text; the file keeps its permission bits.

#include <string_view>

#include "foundation/AnsiString.h"

// Raises EFCreateError (with the system's reason) when the file cannot be
// written; the old file is then untouched and no temporary file is left.
void SaveFileAtomically(const AnsiString& path, std::string_view bytes);
