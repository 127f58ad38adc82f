#pragma once
// Paths of the command line, checked and made absolute before a session
// moves into the data folder.

#include <string>

// A folder argument: refused when empty, missing or not a folder (problem
// says why); otherwise made absolute in place.
bool AbsoluteFolder(std::string& folder, std::string& problem);
// A file argument: refused when empty, missing or not a plain file.
bool AbsoluteFile(std::string& file, std::string& problem);
