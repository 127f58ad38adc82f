#pragma once
// A shell that tells what it starts before it starts it: a scripted session
// reports every program, document and folder, and they still really start.

#include <functional>

#include "platform/Shell.h"

class TReportingShell : public TShell {
public:
    explicit TReportingShell(TShell& real) : real(real) {}

    std::function<void(const AnsiString& file, const std::vector<AnsiString>& args)> OnStart;

    TProcessId StartProgram(const AnsiString& program,
                            const std::vector<AnsiString>& args) override {
        if (OnStart) OnStart(program, args);
        return real.StartProgram(program, args);
    }
    bool OpenDocument(const AnsiString& path) override {
        if (OnStart) OnStart(path, {});
        return real.OpenDocument(path);
    }
    bool OpenFolder(const AnsiString& path) override {
        if (OnStart) OnStart(path, {});
        return real.OpenFolder(path);
    }
    bool WaitForExit(TProcessId process, std::uint32_t ms) override {
        return real.WaitForExit(process, ms);
    }
    int ExitCode(TProcessId process) override { return real.ExitCode(process); }
    std::unique_ptr<TChildProcess> StartChild(const AnsiString& program,
                                              const std::vector<AnsiString>& args) override {
        if (OnStart) OnStart(program, args);
        return real.StartChild(program, args);
    }

private:
    TShell& real;
};
