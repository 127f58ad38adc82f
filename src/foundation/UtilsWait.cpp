// TUtils: the two waits that keep the message loop going, and the start of a
// program, document or folder.

#include "foundation/Utils.h"
#include "platform/Application.h"
#include "platform/Shell.h"

namespace {

bool Terminating() {
    return !Application || Application->Terminated();
}

void RunMessageLoopOnce() {
    if (Application) Application->ProcessMessages();
}

// Ticks wrap after about 49 days; unsigned subtraction keeps a pause that spans
// the wrap as long as any other.
std::uint32_t ElapsedSince(std::uint32_t start) {
    return Application ? Application->GetTickCount() - start : UINT32_MAX;
}

std::uint32_t TickNow() {
    return Application ? Application->GetTickCount() : 0;
}

// An argument text as a program's command line holds it: blanks separate,
// double quotes group and are removed.
std::vector<AnsiString> SplitArguments(const AnsiString& params) {
    std::vector<AnsiString> args;
    std::string current;
    bool quoted = false, inArgument = false;
    for (const char c : params.view()) {
        if (c == '"') {
            quoted = !quoted;
            inArgument = true;
        } else if ((c == ' ' || c == '\t') && !quoted) {
            if (inArgument) args.emplace_back(std::move(current));
            current.clear();
            inArgument = false;
        } else {
            current += c;
            inArgument = true;
        }
    }
    if (inArgument) args.emplace_back(std::move(current));
    return args;
}

} // namespace

void TUtils::Delay(std::uint32_t ms) const {
    const std::uint32_t start = TickNow();
    do {
        RunMessageLoopOnce();
        if (Terminating()) return;
    } while (ElapsedSince(start) < ms);
}

bool TUtils::WaitForFlag(const volatile std::uint8_t* flag, std::uint8_t value,
                         std::uint32_t ms) const {
    const std::uint32_t start = TickNow();
    for (;;) {
        RunMessageLoopOnce();
        if (Terminating()) return false;
        if (*flag == value) return true;
        if (ElapsedSince(start) >= ms) return false;
    }
}

bool TUtils::ExecuteFile(const AnsiString& file, const AnsiString& params, bool wait) {
    return ExecuteFile(file, SplitArguments(params), wait);
}

bool TUtils::ExecuteFile(const AnsiString& file, const std::vector<AnsiString>& args, bool wait) {
    const TShell::TProcessId process = Shell ? Shell->Open(file, args) : -1;
    if (process < 0) {
        ErrorText = "Could Not create process";
        return false;
    }
    if (wait) {
        RunMessageLoopOnce();
        if (process > 0) Shell->WaitForExit(process, WaitMs);
    }
    WaitMs = 100;
    return true;
}
