// TUtils: the two clock texts and the rotating log beside the program.

#include <cstdarg>
#include <ctime>
#include <fcntl.h>
#include <unistd.h>

#include "foundation/FileDescriptor.h"
#include "foundation/Utils.h"

namespace {

constexpr std::uint32_t logLimit = 65536;
// The old buffer held 511 bytes of message; a longer message is cut there.
constexpr std::size_t messageLimit = 511;

void AppendTwoDigits(std::string& out, int value) {
    out += static_cast<char>('0' + value / 10 % 10);
    out += static_cast<char>('0' + value % 10);
}

// Counts the run of c at format[at], the way the date tokens are read.
std::size_t RunLength(std::string_view format, std::size_t at) {
    std::size_t end = at;
    while (end < format.size() && (format[end] | 0x20) == (format[at] | 0x20))
        ++end;
    return end - at;
}

} // namespace

std::int64_t TUtils::Now() {
    return static_cast<std::int64_t>(std::time(nullptr));
}

// Knows the tokens the program uses: mm (month, or minute right after an hour),
// dd, a run of y (two digits for "yy", four for any longer run), hh, nn, ss.
// Everything else, dots and blanks included, is copied as it stands.
AnsiString TUtils::FormatDateTime(const AnsiString& format, std::int64_t moment) {
    const std::time_t t = static_cast<std::time_t>(moment);
    std::tm local{};
    localtime_r(&t, &local);
    const std::string_view f = format.view();
    std::string out;
    bool afterHour = false;
    for (std::size_t i = 0; i < f.size();) {
        const char c = static_cast<char>(f[i] | 0x20);
        const std::size_t run = RunLength(f, i);
        if (c == 'y') {
            const int year = local.tm_year + 1900;
            if (run <= 2)
                AppendTwoDigits(out, year % 100);
            else
                out += std::to_string(year);
        } else if (c == 'm' && run >= 2) {
            AppendTwoDigits(out, afterHour ? local.tm_min : local.tm_mon + 1);
        } else if (c == 'd' && run >= 2) {
            AppendTwoDigits(out, local.tm_mday);
        } else if (c == 'h' && run >= 2) {
            AppendTwoDigits(out, local.tm_hour);
        } else if (c == 'n' && run >= 2) {
            AppendTwoDigits(out, local.tm_min);
        } else if (c == 's' && run >= 2) {
            AppendTwoDigits(out, local.tm_sec);
        } else {
            out.append(f.substr(i, run));
        }
        if (c != '.' && c != ' ' && c != ':') afterHour = c == 'h';
        i += run;
    }
    return AnsiString(std::move(out));
}

AnsiString TUtils::TimeStamp() const {
    return FormatDateTime("mm.dd.yyyy.hh.nn.ss", Now());
}

AnsiString TUtils::WriteLog(const char* format, ...) {
    char buffer[messageLimit + 1];
    va_list args;
    va_start(args, format);
    std::vsnprintf(buffer, sizeof buffer, format, args);
    va_end(args);
    const AnsiString message(buffer);

    if (LogPath.IsEmpty()) LogPath = GetAppFolder() + "Debug.txt";
    if (GetFileSize(LogPath) > logLimit) RenameExtension(LogPath, "bak");

    TFileDescriptor log(::open(LogPath.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666));
    if (log.IsOpen()) {
        const AnsiString line = TimeStamp() + " - " + message + "\r\n";
        WriteAll(log.Get(), line.view());
    }
    return message;
}
