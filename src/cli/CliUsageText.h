#pragma once
// The texts made from the usage table: a command's synopsis and an option's,
// and plain word wrapping for the explanations.

#include <string>
#include <string_view>

#include "cli/CliUsage.h"

// "--filter from|subject|date TEXT"
std::string CliOptionSynopsis(const TCliOption& option);
// "list FOLDER [--filter from|subject|date TEXT] [--click COLUMN]..."
std::string CliSynopsis(const TCliUsage& usage);
// text broken into lines of at most width columns, each indented by indent
// spaces and ended by a newline. A word longer than a line stands alone.
std::string WrapText(std::string_view text, std::size_t indent, std::size_t width = 79);
