#pragma once
// A program of the machine or of the build that runs beside a test (an X
// server, the desktop program) until the test ends it; its output goes to a
// log file. The process is ended by its own id, and always collected.

#include <string>
#include <sys/types.h>
#include <vector>

class TBackgroundProcess {
public:
    // argv[0] is a full path. Starts at once; Running() says whether it did.
    TBackgroundProcess(const std::vector<std::string>& argv, const std::string& logPath);
    ~TBackgroundProcess() { Stop(); }
    TBackgroundProcess(const TBackgroundProcess&) = delete;
    TBackgroundProcess& operator=(const TBackgroundProcess&) = delete;

    bool Running();
    // Ends it (SIGTERM, then SIGKILL after two seconds) and collects it.
    void Stop();

private:
    pid_t pid = -1;
};

// The full path of a program found on PATH; empty if there is none.
std::string FindOnPath(const std::string& name);
