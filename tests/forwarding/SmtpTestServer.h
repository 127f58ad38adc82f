#pragma once
// The SMTP servers the forwarding tests talk to, all on 127.0.0.1: the
// recording server (smtp-test-server beside this file, on aiosmtpd) as a
// child process, and two small servers of the test's own for replies it does
// not give: one that accepts and stays silent, one that closes in the middle
// of DATA.

#include <string>
#include <sys/types.h>
#include <thread>

struct TSmtpServerOptions {
    std::string certificate, key; // offer STARTTLS with these
    std::string user, password;   // offer AUTH and take these
};

class TSmtpTestServer {
public:
    explicit TSmtpTestServer(const TSmtpServerOptions& options = {});
    ~TSmtpTestServer();
    TSmtpTestServer(const TSmtpTestServer&) = delete;
    TSmtpTestServer& operator=(const TSmtpTestServer&) = delete;

    int Port() const { return port; }
    // "127.0.0.1:PORT"
    std::string Host() const;
    // The steps of the sessions so far, one per line; Clear forgets them.
    std::string Log() const;
    void Clear();
    // The bytes of DATA of the n-th accepted message (from 1); waits for it.
    std::string Mail(int n) const;
    int MailCount() const;

private:
    std::string folder;
    pid_t child = -1;
    int port = 0;
};

// Listens on 127.0.0.1 and never accepts: a connection stays without greeting.
class TSilentServer {
public:
    TSilentServer();
    ~TSilentServer();
    int Port() const { return port; }

private:
    int port = 0;
    int socket = -1;
};

// Speaks SMTP until DATA, reads a little of the message and closes.
class TClosingServer {
public:
    TClosingServer();
    ~TClosingServer();
    int Port() const { return port; }

private:
    void Serve();
    int port = 0;
    int socket = -1;
    std::thread worker;
};

// A port on 127.0.0.1 where nothing listens.
int ClosedPort();
// Makes a self-signed certificate for 127.0.0.1 in folder; returns false if
// openssl failed.
bool MakeCertificate(const std::string& folder, std::string& certificate, std::string& key);
