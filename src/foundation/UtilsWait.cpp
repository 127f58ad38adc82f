// TUtils: the two waits that keep the message loop going, and the start of a
// program, document or folder.

#include <algorithm>

#include "foundation/RunningApp.h"
#include "foundation/Shell.h"
#include "foundation/Utils.h"

namespace {

// A flag may also be set by work outside the loop, so its wait looks again
// at least this often.
constexpr std::uint32_t flagLookMs = 10;

bool Terminating() {
    const TRunningApp* app = TRunningApp::Running();
    return !app || app->Terminated();
}

void RunMessageLoopOnce() {
    if (TRunningApp* app = TRunningApp::Running()) app->ProcessMessages();
}

void SleepUntilEvent(std::uint32_t ms) {
    if (TRunningApp* app = TRunningApp::Running()) app->WaitForEvents(ms);
}

// Ticks wrap after about 49 days; unsigned subtraction keeps a pause that spans
// the wrap as long as any other.
std::uint32_t ElapsedSince(std::uint32_t start) {
    const TRunningApp* app = TRunningApp::Running();
    return app ? app->GetTickCount() - start : UINT32_MAX;
}

std::uint32_t TickNow() {
    const TRunningApp* app = TRunningApp::Running();
    return app ? app->GetTickCount() : 0;
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
    for (;;) {
        RunMessageLoopOnce();
        if (Terminating()) return;
        const std::uint32_t elapsed = ElapsedSince(start);
        if (elapsed >= ms) return;
        SleepUntilEvent(ms - elapsed);
    }
}

bool TUtils::WaitForFlag(const volatile std::uint8_t* flag, std::uint8_t value,
                         std::uint32_t ms) const {
    const std::uint32_t start = TickNow();
    for (;;) {
        RunMessageLoopOnce();
        if (Terminating()) return false;
        if (*flag == value) return true;
        const std::uint32_t elapsed = ElapsedSince(start);
        if (elapsed >= ms) return false;
        SleepUntilEvent(std::min(ms - elapsed, flagLookMs));
    }
}

bool TUtils::ExecuteFile(const AnsiString& file, const AnsiString& params, bool wait) {
    return ExecuteFile(file, SplitArguments(params), wait);
}

bool TUtils::ExecuteFile(const AnsiString& file, const std::vector<AnsiString>& args, bool wait) {
    const TShell::TProcessId process = Shell ? Shell->StartProgram(file, args) : -1;
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

bool TUtils::OpenDocument(const AnsiString& path) {
    if (Shell && Shell->OpenDocument(path)) return true;
    ErrorText = "Could Not open document";
    return false;
}

bool TUtils::OpenFolder(const AnsiString& path) {
    if (Shell && Shell->OpenFolder(path)) return true;
    ErrorText = "Could Not open folder";
    return false;
}
