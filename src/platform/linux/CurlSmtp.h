#pragma once
// The SMTP component on libcurl. One easy handle per connection: Connect runs
// the greeting, EHLO, STARTTLS (whenever the server offers it) and the login,
// then a NOOP, and keeps the connection; SendMail reuses it; Disconnect sends
// QUIT. Each exchange runs on a worker thread while the calling thread keeps
// the message loop going; the component's events are queued by the worker
// and fired on the calling thread, in the order things happened.
//
// Time-outs (seconds): 30 for the connection with its greeting, EHLO, TLS and
// login; 30 for each reply of the server; a transfer that moves no byte for
// 30 seconds ends. A server that accepts and then says nothing so fails
// within half a minute. VELLUMDESK_SMTP_TIMEOUT=SECONDS replaces all three.
// VELLUMDESK_SMTP_CA_FILE names a PEM file of certificates trusted besides
// the system's.

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>

#include "platform/SmtpClient.h"

class TOutgoingMail;

class TCurlSmtp : public TSmtpClient {
public:
    TCurlSmtp();
    ~TCurlSmtp() override;
    void Connect() override;
    void Disconnect() override;
    void SendMail() override;

    // What the worker's callbacks reach.
    void Queue(std::function<void()> event);
    void SocketOpened();
    void SawReply(const std::string& line);
    void SawCommand(const std::string& line);
    std::size_t ReadBody(char* buffer, std::size_t capacity);

private:
    // Runs work on a worker thread; fires the queued events meanwhile.
    int Run(const std::function<int()>& work);
    void DeliverEvents();
    bool Configure(const std::string& url);
    void ReportConnectFailure(int code);
    void Close();

    void* handle = nullptr; // the CURL easy handle
    std::mutex mutex;
    std::condition_variable wake;
    std::deque<std::function<void()>> events;
    bool workDone = false;

    // State of the exchange, touched by the worker only while it runs.
    std::string lastCommand;
    bool greeted = false;
    bool loggedIn = false;
    std::unique_ptr<TOutgoingMail> outgoing;
    std::string caBundle;
};

std::unique_ptr<TSmtpClient> CreateCurlSmtp();
