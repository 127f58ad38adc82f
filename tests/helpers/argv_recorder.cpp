// Stands in for a program the suite starts: writes each of its arguments,
// argument 0 included, on a line of its own to the file named by
// ARGV_RECORD_FILE, with "\n" inside an argument written as "\\n".
// Exits with the code in ARGV_RECORD_EXIT (0 when unset).

#include <cstdio>
#include <cstdlib>
#include <string>

int main(int argc, char** argv) {
    const char* target = std::getenv("ARGV_RECORD_FILE");
    if (!target) return 2;
    const std::string partial = std::string(target) + ".part";
    std::FILE* out = std::fopen(partial.c_str(), "w");
    if (!out) return 3;
    for (int i = 0; i < argc; ++i) {
        for (const char* c = argv[i]; *c; ++c) {
            if (*c == '\n')
                std::fputs("\\n", out);
            else
                std::fputc(*c, out);
        }
        std::fputc('\n', out);
    }
    std::fclose(out);
    // Appears whole, so a test that polls for it never reads half of it.
    std::rename(partial.c_str(), target);
    const char* code = std::getenv("ARGV_RECORD_EXIT");
    return code ? std::atoi(code) : 0;
}
