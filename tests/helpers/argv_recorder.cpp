// Stands in for a program the suite starts: writes each of its arguments,
// argument 0 included, on a line of its own to the file named by
// ARGV_RECORD_FILE, with "\n" inside an argument written as "\\n".
// Exits with the code in ARGV_RECORD_EXIT (0 when unset).
// As a child that is waited for: with ARGV_RECORD_READY set it then says it
// is up on the descriptor named by VELLUMDESK_READY_FD; with ARGV_RECORD_STAY
// set it runs until a signal ends it.

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

namespace {

void SayReady() {
    const char* fd = std::getenv("VELLUMDESK_READY_FD");
    if (!fd || !std::getenv("ARGV_RECORD_READY")) return;
    const int ready = std::atoi(fd);
    if (write(ready, "1", 1) != 1) std::exit(4);
    close(ready);
}

} // namespace

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
    SayReady();
    if (std::getenv("ARGV_RECORD_STAY"))
        for (;;)
            pause();
    const char* code = std::getenv("ARGV_RECORD_EXIT");
    return code ? std::atoi(code) : 0;
}
