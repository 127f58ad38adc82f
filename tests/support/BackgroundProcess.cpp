#include "support/BackgroundProcess.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <sstream>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

extern char** environ;

TBackgroundProcess::TBackgroundProcess(const std::vector<std::string>& argv,
                                       const std::string& logPath) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 1, logPath.c_str(), O_WRONLY | O_CREAT | O_APPEND,
                                     0644);
    posix_spawn_file_actions_adddup2(&actions, 1, 2);
    std::vector<char*> args;
    for (const std::string& arg : argv)
        args.push_back(const_cast<char*>(arg.c_str()));
    args.push_back(nullptr);
    if (posix_spawn(&pid, args[0], &actions, nullptr, args.data(), environ) != 0) pid = -1;
    posix_spawn_file_actions_destroy(&actions);
}

bool TBackgroundProcess::Running() {
    if (pid <= 0) return false;
    int status = 0;
    if (waitpid(pid, &status, WNOHANG) == 0) return true;
    pid = -1;
    return false;
}

void TBackgroundProcess::Stop() {
    if (!Running()) return;
    kill(pid, SIGTERM);
    for (int i = 0; i < 200; ++i) {
        if (waitpid(pid, nullptr, WNOHANG) == pid) {
            pid = -1;
            return;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    kill(pid, SIGKILL);
    waitpid(pid, nullptr, 0);
    pid = -1;
}

std::string FindOnPath(const std::string& name) {
    const char* path = std::getenv("PATH");
    std::stringstream folders(path ? path : "/usr/bin:/bin");
    for (std::string folder; std::getline(folders, folder, ':');) {
        const std::string candidate = folder + "/" + name;
        if (access(candidate.c_str(), X_OK) == 0) return candidate;
    }
    return {};
}
