#pragma once
// The Linux child of TChildProcess: posix_spawn with an argument vector and a
// pipe whose write end the child finds as VELLUMDESK_READY_FD.

#include <memory>
#include <sys/types.h>
#include <vector>

#include "foundation/FileDescriptor.h"
#include "platform/ChildProcess.h"

class TLinuxChildProcess : public TChildProcess {
public:
    // Null when program could not be started (missing, not executable).
    static std::unique_ptr<TLinuxChildProcess> Start(const AnsiString& program,
                                                     const std::vector<AnsiString>& args);
    ~TLinuxChildProcess() override;

    std::int64_t Id() const override { return pid; }
    TInputIdle WaitForInputIdle(std::uint32_t ms) override;
    bool Running() override;
    void WaitForEnd(std::uint32_t ms) override;
    int ExitCode() const override { return exitCode; }

private:
    TLinuxChildProcess(pid_t pid, TFileDescriptor ready) : pid(pid), ready(std::move(ready)) {}

    pid_t pid;
    TFileDescriptor ready; // read end; closed once the child has answered
    bool collected = false;
    bool saidReady = false;
    int exitCode = -1;
};
