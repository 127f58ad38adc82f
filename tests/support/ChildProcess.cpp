#include "support/ChildProcess.h"

#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace {

struct TPipe {
    int fd[2] = {-1, -1};
    TPipe() {
        if (pipe2(fd, O_CLOEXEC) != 0) fd[0] = fd[1] = -1;
    }
    ~TPipe() {
        for (int f : fd)
            if (f >= 0) close(f);
    }
    void CloseEnd(int end) {
        if (fd[end] >= 0) close(fd[end]);
        fd[end] = -1;
    }
};

void Pump(TPipe& in, const std::string& input, TPipe& out, TPipe& err, TChildResult& result) {
    std::size_t written = 0;
    if (input.empty()) in.CloseEnd(1);
    while (out.fd[0] >= 0 || err.fd[0] >= 0) {
        pollfd fds[3] = {{out.fd[0], POLLIN, 0}, {err.fd[0], POLLIN, 0}, {in.fd[1], POLLOUT, 0}};
        if (poll(fds, 3, -1) < 0) break;
        char buffer[65536];
        TPipe* sources[2] = {&out, &err};
        std::string* sinks[2] = {&result.out, &result.err};
        for (int i = 0; i < 2; ++i) {
            if (!(fds[i].revents & (POLLIN | POLLHUP))) continue;
            const ssize_t got = read(sources[i]->fd[0], buffer, sizeof buffer);
            if (got > 0)
                sinks[i]->append(buffer, static_cast<std::size_t>(got));
            else
                sources[i]->CloseEnd(0);
        }
        if (in.fd[1] >= 0 && (fds[2].revents & (POLLOUT | POLLERR))) {
            const ssize_t put = write(in.fd[1], input.data() + written, input.size() - written);
            if (put > 0) written += static_cast<std::size_t>(put);
            if (put <= 0 || written == input.size()) in.CloseEnd(1);
        }
    }
}

} // namespace

TChildResult RunChild(const std::vector<std::string>& argv, const std::string& stdinText) {
    TChildResult result;
    // A child that ends before reading all its input must not end the tests too.
    signal(SIGPIPE, SIG_IGN);
    TPipe in, out, err;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, in.fd[0], 0);
    posix_spawn_file_actions_adddup2(&actions, out.fd[1], 1);
    posix_spawn_file_actions_adddup2(&actions, err.fd[1], 2);
    std::vector<char*> args;
    for (const std::string& arg : argv)
        args.push_back(const_cast<char*>(arg.c_str()));
    args.push_back(nullptr);
    pid_t pid = 0;
    const int failed = posix_spawn(&pid, args[0], &actions, nullptr, args.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (failed != 0) return result;
    in.CloseEnd(0);
    out.CloseEnd(1);
    err.CloseEnd(1);
    Pump(in, stdinText, out, err, result);
    int status = 0;
    waitpid(pid, &status, 0);
    result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return result;
}

std::string BuiltProgram(const char* name) {
    return std::string(VD_BINARY_DIR) + "/" + name;
}
