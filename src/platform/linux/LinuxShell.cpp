#include "platform/linux/LinuxShell.h"
#include "platform/linux/LinuxChildProcess.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

extern char** environ;

namespace {

bool IsExecutableFile(const struct stat& st, const char* path) {
    return S_ISREG(st.st_mode) && ::access(path, X_OK) == 0;
}

bool OpenWithDesktop(const AnsiString& path) {
    g_autoptr(GFile) file = g_file_new_for_path(path.c_str());
    g_autofree char* uri = g_file_get_uri(file);
    g_autoptr(GError) error = nullptr;
    return g_app_info_launch_default_for_uri(uri, nullptr, &error);
}

bool IsDesktopEntry(const AnsiString& path) {
    constexpr std::string_view suffix = ".desktop";
    return path.view().ends_with(suffix);
}

// A desktop entry starts its application with the arguments as files.
bool LaunchDesktopEntry(const AnsiString& path, const std::vector<AnsiString>& args) {
    g_autoptr(GDesktopAppInfo) app = g_desktop_app_info_new_from_filename(path.c_str());
    if (!app) return false;
    GList* files = nullptr;
    for (const AnsiString& arg : args)
        files = g_list_append(files, g_file_new_for_path(arg.c_str()));
    g_autoptr(GError) error = nullptr;
    const bool started = g_app_info_launch(G_APP_INFO(app), files, nullptr, &error);
    g_list_free_full(files, g_object_unref);
    return started;
}

int StatusToExitCode(int status) {
    if (WIFEXITED(status)) return WEXITSTATUS(status);
    if (WIFSIGNALED(status)) return 128 + WTERMSIG(status);
    return -1;
}

} // namespace

TLinuxShell::~TLinuxShell() {
    ReapEnded();
}

TShell::TProcessId TLinuxShell::StartProgram(const AnsiString& program,
                                             const std::vector<AnsiString>& args) {
    ReapEnded();
    if (program.Pos("/") == 0) return -1;
    struct stat st {};
    if (::stat(program.c_str(), &st) != 0) return -1;
    if (S_ISREG(st.st_mode) && IsDesktopEntry(program))
        return LaunchDesktopEntry(program, args) ? 0 : -1;
    if (IsExecutableFile(st, program.c_str())) return Spawn(program, args);
    return -1;
}

bool TLinuxShell::OpenDocument(const AnsiString& path) {
    struct stat st {};
    return ::stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode) && OpenWithDesktop(path);
}

bool TLinuxShell::OpenFolder(const AnsiString& path) {
    struct stat st {};
    return ::stat(path.c_str(), &st) == 0 && S_ISDIR(st.st_mode) && OpenWithDesktop(path);
}

TShell::TProcessId TLinuxShell::Spawn(const AnsiString& program,
                                      const std::vector<AnsiString>& args) {
    std::vector<char*> argv;
    argv.push_back(const_cast<char*>(program.c_str()));
    for (const AnsiString& arg : args)
        argv.push_back(const_cast<char*>(arg.c_str()));
    argv.push_back(nullptr);

    posix_spawnattr_t attr;
    posix_spawnattr_init(&attr);
    sigset_t defaults, empty;
    sigemptyset(&empty);
    sigemptyset(&defaults);
    sigaddset(&defaults, SIGPIPE);
    posix_spawnattr_setsigmask(&attr, &empty);
    posix_spawnattr_setsigdefault(&attr, &defaults);
    posix_spawnattr_setflags(&attr,
                             POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSID);
    pid_t pid = 0;
    const int failed = posix_spawn(&pid, program.c_str(), nullptr, &attr, argv.data(), environ);
    posix_spawnattr_destroy(&attr);
    if (failed != 0) return -1;
    children[pid] = -1;
    return pid;
}

bool TLinuxShell::WaitForExit(TProcessId process, std::uint32_t ms) {
    const auto it = children.find(static_cast<pid_t>(process));
    if (it == children.end()) return true;
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(ms);
    for (;;) {
        int status = 0;
        const pid_t ended = ::waitpid(it->first, &status, WNOHANG);
        if (ended == it->first) {
            it->second = StatusToExitCode(status);
            return true;
        }
        if (ended < 0 && errno != EINTR) return true;
        if (std::chrono::steady_clock::now() >= deadline) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
}

int TLinuxShell::ExitCode(TProcessId process) {
    const auto it = children.find(static_cast<pid_t>(process));
    if (it == children.end()) return -1;
    if (it->second < 0) WaitForExit(process, 0);
    return it->second;
}

void TLinuxShell::ReapEnded() {
    for (auto& [pid, code] : children) {
        int status = 0;
        if (code < 0 && ::waitpid(pid, &status, WNOHANG) == pid) code = StatusToExitCode(status);
    }
}

std::unique_ptr<TChildProcess> TLinuxShell::StartChild(const AnsiString& program,
                                                       const std::vector<AnsiString>& args) {
    return TLinuxChildProcess::Start(program, args);
}
