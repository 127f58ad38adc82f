#pragma once
// Odd messages for agreement tests of the message readers.

#include <random>
#include <string>

// Lines from pieces that sit on the edges of the rules: names at columns 18
// to 21, folded lines, every line end, NUL bytes, quotes, long lines.
std::string RandomMessage(std::mt19937& random);
