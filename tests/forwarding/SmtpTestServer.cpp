#include "SmtpTestServer.h"

#include <arpa/inet.h>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <netinet/in.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "support/ChildProcess.h"
#include "support/TempFolder.h"

extern char** environ;

namespace {

int ListenOnLoopback(int& port) {
    const int fd = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    if (fd < 0 || ::bind(fd, reinterpret_cast<sockaddr*>(&address), size) != 0 ||
        ::listen(fd, 4) != 0 ||
        ::getsockname(fd, reinterpret_cast<sockaddr*>(&address), &size) != 0)
        return -1;
    port = ntohs(address.sin_port);
    return fd;
}

std::string ReadLine(int fd) {
    std::string line;
    char c = 0;
    while (::read(fd, &c, 1) == 1 && c != '\n')
        line += c;
    return line;
}

void Say(int fd, const char* text) {
    (void)!::write(fd, text, std::char_traits<char>::length(text));
}

// The recording server takes a while to start on a busy machine.
constexpr int startMs = 60000;

} // namespace

TSmtpTestServer::TSmtpTestServer(const TSmtpServerOptions& options) {
    char tmpl[] = "/tmp/vellumdesk-smtp-XXXXXX";
    folder = ::mkdtemp(tmpl) ? tmpl : "";
    std::vector<std::string> args{VD_SOURCE_DIR "/tests/forwarding/smtp-test-server", "--dir",
                                  folder};
    if (!options.certificate.empty())
        args.insert(args.end(), {"--tls", options.certificate, options.key});
    if (!options.user.empty()) args.insert(args.end(), {"--auth", options.user, options.password});
    std::vector<char*> argv;
    for (std::string& arg : args)
        argv.push_back(arg.data());
    argv.push_back(nullptr);
    int out[2];
    if (::pipe2(out, O_CLOEXEC) != 0) return;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, out[1], 1);
    // What the server says of failed sessions (a refused certificate) is kept beside its log.
    const std::string errors = folder + "/stderr.txt";
    posix_spawn_file_actions_addopen(&actions, 2, errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                     0600);
    ::posix_spawn(&child, argv[0], &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    ::close(out[1]);
    pollfd ready{out[0], POLLIN, 0};
    if (::poll(&ready, 1, startMs) == 1) {
        const std::string line = ReadLine(out[0]);
        if (line.rfind("port ", 0) == 0) port = std::atoi(line.c_str() + 5);
    }
    ::close(out[0]);
}

TSmtpTestServer::~TSmtpTestServer() {
    if (child > 0) {
        ::kill(child, SIGTERM);
        ::waitpid(child, nullptr, 0);
    }
    std::error_code ignored;
    if (!folder.empty()) std::filesystem::remove_all(folder, ignored);
}

std::string TSmtpTestServer::Host() const {
    return "127.0.0.1:" + std::to_string(port);
}

std::string TSmtpTestServer::Log() const {
    return PathExists(folder + "/log.txt") ? ReadFileBytes(folder + "/log.txt") : std::string();
}

void TSmtpTestServer::Clear() {
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(folder, ignored))
        std::filesystem::remove(entry.path(), ignored);
}

std::string TSmtpTestServer::Mail(int n) const {
    return AwaitFile(folder + "/mail-" + std::to_string(n) + ".eml");
}

int TSmtpTestServer::MailCount() const {
    int count = 0;
    while (PathExists(folder + "/mail-" + std::to_string(count + 1) + ".eml"))
        ++count;
    return count;
}

TSilentServer::TSilentServer() : socket(ListenOnLoopback(port)) {}

TSilentServer::~TSilentServer() {
    if (socket >= 0) ::close(socket);
}

TClosingServer::TClosingServer() : socket(ListenOnLoopback(port)) {
    worker = std::thread([this] { Serve(); });
}

TClosingServer::~TClosingServer() {
    ::shutdown(socket, SHUT_RDWR);
    ::close(socket);
    worker.join();
}

void TClosingServer::Serve() {
    for (;;) {
        const int fd = ::accept4(socket, nullptr, nullptr, SOCK_CLOEXEC);
        if (fd < 0) return;
        Say(fd, "220 closing.test ESMTP\r\n");
        for (std::string line = ReadLine(fd); !line.empty(); line = ReadLine(fd)) {
            if (line.rfind("EHLO", 0) == 0) {
                Say(fd, "250 closing.test\r\n");
            } else if (line.rfind("DATA", 0) == 0) {
                Say(fd, "354 go ahead\r\n");
                char buffer[64];
                (void)!::read(fd, buffer, sizeof buffer);
                break;
            } else if (line.rfind("QUIT", 0) == 0) {
                Say(fd, "221 bye\r\n");
                break;
            } else {
                Say(fd, "250 OK\r\n");
            }
        }
        ::close(fd);
    }
}

int ClosedPort() {
    int port = 0;
    const int fd = ListenOnLoopback(port);
    ::close(fd);
    return port;
}

bool MakeCertificate(const std::string& folder, std::string& certificate, std::string& key) {
    certificate = folder + "/server.pem";
    key = folder + "/server.key";
    const TChildResult made = RunChild({"/usr/bin/openssl", "req", "-x509", "-newkey", "ec",
                                        "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes",
                                        "-keyout", key, "-out", certificate, "-days", "2", "-subj",
                                        "/CN=127.0.0.1", "-addext", "subjectAltName=IP:127.0.0.1"});
    return made.exitCode == 0;
}
