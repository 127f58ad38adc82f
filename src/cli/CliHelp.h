#pragma once
// What vellumdesk-cli prints about its own use: the usage of every command it
// has, one command's usage, and the check of a command's options against the
// usage table before the command runs.

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "cli/CliUsage.h"

// Every command of this program, with the one line of the program's own forms.
void PrintCliUsage(std::FILE* to);
// The synopsis, the explanation and the options of one command.
void PrintCommandUsage(std::FILE* to, const TCliUsage& usage);
// "usage: vellumdesk-cli COMMAND ..." on standard error; returns exit status 2.
int CliUsageError(std::string_view command);
// Checks args against the command's options. -1: run the command; otherwise
// the exit status of a help printed (0) or of a wrong option named (2).
int CheckCliOptions(const TCliUsage& usage, const std::vector<std::string>& args);
