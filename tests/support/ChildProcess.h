#pragma once
// Runs a program of the build as a real child process and collects what it
// wrote and how it ended.

#include <string>
#include <vector>

struct TChildResult {
    int exitCode = -1;
    std::string out, err;
};

// argv[0] is the program's path. stdinText is written to its standard input.
TChildResult RunChild(const std::vector<std::string>& argv, const std::string& stdinText = {});

// The path of a program built beside the tests (vellumdesk-cli, ...).
std::string BuiltProgram(const char* name);
