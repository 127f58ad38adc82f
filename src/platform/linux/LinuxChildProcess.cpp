#include "platform/linux/LinuxChildProcess.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

extern char** environ;

namespace {

// The descriptor number the child finds its end of the ready pipe under.
constexpr int childReadyFd = 3;

// Our environment with the ready variable set to the child's descriptor.
std::vector<std::string> ChildEnvironment() {
    const std::string prefix = std::string(TChildProcess::ReadyVariable) + "=";
    std::vector<std::string> env;
    for (char** entry = environ; entry && *entry; ++entry)
        if (std::strncmp(*entry, prefix.c_str(), prefix.size()) != 0) env.emplace_back(*entry);
    env.push_back(prefix + std::to_string(childReadyFd));
    return env;
}

template <typename Strings> std::vector<char*> PointersTo(Strings& strings, char* first = nullptr) {
    std::vector<char*> pointers;
    if (first) pointers.push_back(first);
    for (auto& s : strings)
        pointers.push_back(const_cast<char*>(s.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

int StatusToExitCode(int status) {
    if (WIFEXITED(status)) return WEXITSTATUS(status);
    if (WIFSIGNALED(status)) return 128 + WTERMSIG(status);
    return -1;
}

// The child inherits nothing of ours but the ready pipe, starts with default
// signal handling and runs in a session of its own, as the desktop's programs do.
struct TSpawnSetup {
    posix_spawnattr_t attr;
    posix_spawn_file_actions_t actions;

    explicit TSpawnSetup(int writeEnd) {
        posix_spawnattr_init(&attr);
        sigset_t none, defaults;
        sigemptyset(&none);
        sigemptyset(&defaults);
        sigaddset(&defaults, SIGPIPE);
        posix_spawnattr_setsigmask(&attr, &none);
        posix_spawnattr_setsigdefault(&attr, &defaults);
        posix_spawnattr_setflags(&attr, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF |
                                            POSIX_SPAWN_SETSID);
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, writeEnd, childReadyFd);
        posix_spawn_file_actions_addclosefrom_np(&actions, childReadyFd + 1);
    }
    ~TSpawnSetup() {
        posix_spawn_file_actions_destroy(&actions);
        posix_spawnattr_destroy(&attr);
    }
    TSpawnSetup(const TSpawnSetup&) = delete;
    TSpawnSetup& operator=(const TSpawnSetup&) = delete;
};

// A write end that happens to have the child's number would be kept across
// the start with its close-on-exec flag; any other number is copied cleanly.
TFileDescriptor AwayFromChildNumber(TFileDescriptor fd) {
    if (fd.Get() != childReadyFd) return fd;
    return TFileDescriptor(::fcntl(fd.Get(), F_DUPFD_CLOEXEC, childReadyFd + 1));
}

} // namespace

std::unique_ptr<TLinuxChildProcess> TLinuxChildProcess::Start(const AnsiString& program,
                                                              const std::vector<AnsiString>& args) {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) return nullptr;
    TFileDescriptor readEnd(ends[0]);
    const TFileDescriptor writeEnd = AwayFromChildNumber(TFileDescriptor(ends[1]));
    if (!writeEnd.IsOpen()) return nullptr;

    std::vector<std::string> env = ChildEnvironment();
    std::vector<char*> envp = PointersTo(env);
    std::vector<char*> argv = PointersTo(args, const_cast<char*>(program.c_str()));
    TSpawnSetup setup(writeEnd.Get());
    pid_t pid = 0;
    if (::posix_spawn(&pid, program.c_str(), &setup.actions, &setup.attr, argv.data(),
                      envp.data()) != 0)
        return nullptr;
    return std::unique_ptr<TLinuxChildProcess>(new TLinuxChildProcess(pid, std::move(readEnd)));
}

TLinuxChildProcess::~TLinuxChildProcess() {
    if (!Running()) return;
    // The last owner lets go of a child that still runs: one thread waits for
    // exactly this process, so it is collected the moment it ends.
    std::thread([pid = pid] {
        int status = 0;
        while (::waitpid(pid, &status, 0) < 0 && errno == EINTR) {
        }
    }).detach();
}

TChildProcess::TInputIdle TLinuxChildProcess::WaitForInputIdle(std::uint32_t ms) {
    if (saidReady) return TInputIdle::Ready;
    if (!ready.IsOpen()) return TInputIdle::Failed;
    pollfd wait{ready.Get(), POLLIN, 0};
    const int timeout = ms > 60000 ? 60000 : static_cast<int>(ms);
    const int got = ::poll(&wait, 1, timeout);
    if (got == 0 || (got < 0 && errno == EINTR)) return TInputIdle::TimedOut;
    char byte = 0;
    const ssize_t n = got > 0 ? ::read(ready.Get(), &byte, 1) : -1;
    ready.Close();
    saidReady = n == 1;
    return saidReady ? TInputIdle::Ready : TInputIdle::Failed;
}

bool TLinuxChildProcess::Running() {
    if (collected) return false;
    int status = 0;
    pid_t ended = 0;
    do
        ended = ::waitpid(pid, &status, WNOHANG);
    while (ended < 0 && errno == EINTR);
    if (ended == 0) return true;
    collected = true;
    if (ended == pid) exitCode = StatusToExitCode(status);
    ready.Close();
    return false;
}

void TLinuxChildProcess::WaitForEnd(std::uint32_t ms) {
    for (std::uint32_t waited = 0; !collected; ++waited) {
        siginfo_t info{};
        if (::waitid(P_PID, static_cast<id_t>(pid), &info, WEXITED | WNOHANG | WNOWAIT) != 0 ||
            info.si_pid == pid || waited >= ms)
            return;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}
