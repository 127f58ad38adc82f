#pragma once
// The shell of the Linux desktop: programs start through posix_spawn with an
// argument vector (never posix_spawnp: no PATH search); documents and folders
// go to the desktop's default handler through GIO. A started program runs in its own session, so it
// outlives us.

#include <map>
#include <sys/types.h>

#include "platform/Shell.h"

class TLinuxShell : public TShell {
public:
    ~TLinuxShell() override;
    TProcessId StartProgram(const AnsiString& program,
                            const std::vector<AnsiString>& args) override;
    bool OpenDocument(const AnsiString& path) override;
    bool OpenFolder(const AnsiString& path) override;
    bool WaitForExit(TProcessId process, std::uint32_t ms) override;
    int ExitCode(TProcessId process) override;
    std::unique_ptr<TChildProcess> StartChild(const AnsiString& program,
                                              const std::vector<AnsiString>& args) override;

private:
    TProcessId Spawn(const AnsiString& program, const std::vector<AnsiString>& args);
    // Collects the programs that ended, so none lingers as a zombie.
    void ReapEnded();

    // Exit status by process id; -1 while the process runs.
    std::map<pid_t, int> children;
};
