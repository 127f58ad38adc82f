#pragma once
// A shell that tells what it was asked to start and whether it did: a scripted
// session reports every program, document and folder, and they really start.

#include <functional>

#include "platform/Shell.h"

class TReportingShell : public TShell {
public:
    explicit TReportingShell(TShell& real) : real(real) {}

    // started is false when the real shell refused: nothing ran.
    std::function<void(const AnsiString& file, const std::vector<AnsiString>& args, bool started)>
        OnStart;

    TProcessId StartProgram(const AnsiString& program,
                            const std::vector<AnsiString>& args) override {
        const TProcessId id = real.StartProgram(program, args);
        Tell(program, args, id >= 0);
        return id;
    }
    bool OpenDocument(const AnsiString& path) override {
        return Tell(path, {}, real.OpenDocument(path));
    }
    bool OpenFolder(const AnsiString& path) override {
        return Tell(path, {}, real.OpenFolder(path));
    }
    bool WaitForExit(TProcessId process, std::uint32_t ms) override {
        return real.WaitForExit(process, ms);
    }
    int ExitCode(TProcessId process) override { return real.ExitCode(process); }
    std::unique_ptr<TChildProcess> StartChild(const AnsiString& program,
                                              const std::vector<AnsiString>& args) override {
        std::unique_ptr<TChildProcess> child = real.StartChild(program, args);
        Tell(program, args, child != nullptr);
        return child;
    }

private:
    bool Tell(const AnsiString& file, const std::vector<AnsiString>& args, bool started) {
        if (OnStart) OnStart(file, args, started);
        return started;
    }

    TShell& real;
};
