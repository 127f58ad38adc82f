#pragma once
// The SMTP component: a connection that reports through a flag, a send that
// calls back before anything of the message goes out, and events that tell
// what happened. The Linux program runs it on libcurl; this base has no
// transport and fails every connection, which is what a program without one
// can honestly do.

#include <cstdint>
#include <functional>
#include <memory>

#include "foundation/AnsiString.h"
#include "foundation/StringList.h"
#include "platform/PostMessage.h"

class TSmtpClient {
public:
    virtual ~TSmtpClient() = default;

    // Returns after the attempt; Connected tells the outcome.
    virtual void Connect();
    virtual void Disconnect();
    // Sends PostMessage over the open connection and returns when the
    // exchange is over.
    virtual void SendMail();

    // Not 0 while connected. Read by the program's flag wait.
    volatile std::uint8_t Connected = 0;

    // Settings. Host may be written HOST:PORT; without a port, Port counts.
    AnsiString Host;
    int Port = 25;
    AnsiString Charset = "us-ascii";
    AnsiString UserID;     // the login name; empty: no login
    AnsiString Password;   // the login password
    AnsiString MailSender; // the envelope sender; empty: the address of the sender text
    // Options: STARTTLS when the server offers it; refuse a server that does
    // not offer it; refuse a server that offers no login although a name is set.
    std::uint8_t StartTls = 1;
    std::uint8_t RequireTls = 0;
    std::uint8_t RequireAuth = 0;

    // Lines that go out with the message's header; filled in OnSendStart.
    TStringList ExtraHeaders;
    TPostMessage PostMessage;

    // Events. A handled flag comes in false; the component ignores it.
    std::function<void(const AnsiString& file)> OnAttachmentNotFound;
    std::function<void(const AnsiString&, const AnsiString&, const AnsiString&)>
        OnAttachmentStartEncode;
    std::function<void(bool& handled)> OnAuthenticationFailed;
    std::function<void()> OnConnect;
    std::function<void()> OnConnectionFailed;
    std::function<void()> OnConnectionRequired;
    std::function<void()> OnDisconnect;
    std::function<void(const AnsiString& file)> OnEncodeEnd;
    std::function<void(const AnsiString& file)> OnEncodeStart;
    std::function<void()> OnFailure;
    std::function<void(bool& handled, int part)> OnHeaderIncomplete;
    std::function<void()> OnHostResolved;
    std::function<void(bool& handled)> OnInvalidHost;
    std::function<void(const AnsiString& address)> OnMailListReturn;
    std::function<void()> OnModifyAttachmentHeader;
    std::function<void()> OnPacketSent;
    std::function<void(const AnsiString& recipient)> OnRecipientNotFound;
    std::function<void()> OnSendStart;
    std::function<void(const AnsiString& status)> OnStatus;
    std::function<void()> OnSuccess;

protected:
    // Calls an event if it is set.
    template <typename Event, typename... Args>
    static void Fire(const Event& event, Args&&... args) {
        if (event) event(std::forward<Args>(args)...);
    }
};

// Makes the program's SMTP component. Set by main(); without it, the base.
using TSmtpClientFactory = std::unique_ptr<TSmtpClient> (*)();
extern TSmtpClientFactory CreateSmtpClient;
std::unique_ptr<TSmtpClient> NewSmtpClient();
