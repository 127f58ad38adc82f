#include "platform/linux/CurlSmtp.h"

#include <cstdlib>
#include <curl/curl.h>
#include <fstream>
#include <iterator>
#include <mutex>
#include <sstream>
#include <sys/socket.h>
#include <thread>

#include "platform/Application.h"
#include "platform/linux/OutgoingMail.h"
#include "platform/linux/SmtpHost.h"

namespace {

constexpr long defaultTimeout = 30;

long Timeout() {
    const char* text = std::getenv("VELLUMDESK_SMTP_TIMEOUT");
    const long value = text ? std::strtol(text, nullptr, 10) : 0;
    return value > 0 ? value : defaultTimeout;
}

CURL* Easy(void* handle) {
    return static_cast<CURL*>(handle);
}

std::string ReadWhole(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

// Each line of what curl shows, without its line end.
template <typename Each> void ForEachLine(const char* data, std::size_t size, Each&& each) {
    std::string_view text(data, size);
    while (!text.empty()) {
        const auto end = text.find('\n');
        std::string_view line = text.substr(0, end);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        if (!line.empty()) each(std::string(line));
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + 1);
    }
}

int OnDebug(CURL*, curl_infotype type, char* data, std::size_t size, void* user) {
    auto* smtp = static_cast<TCurlSmtp*>(user);
    if (type == CURLINFO_HEADER_IN)
        ForEachLine(data, size, [smtp](const std::string& line) { smtp->SawReply(line); });
    else if (type == CURLINFO_HEADER_OUT)
        ForEachLine(data, size, [smtp](const std::string& line) { smtp->SawCommand(line); });
    return 0;
}

curl_socket_t OnOpenSocket(void* user, curlsocktype, curl_sockaddr* address) {
    auto* smtp = static_cast<TCurlSmtp*>(user);
    smtp->SocketOpened();
    return ::socket(address->family, address->socktype | SOCK_CLOEXEC, address->protocol);
}

std::size_t OnRead(char* buffer, std::size_t size, std::size_t count, void* user) {
    return static_cast<TCurlSmtp*>(user)->ReadBody(buffer, size * count);
}

std::size_t OnWrite(char*, std::size_t size, std::size_t count, void*) {
    return size * count; // the reply text of NOOP: nothing to keep
}

} // namespace

std::unique_ptr<TSmtpClient> CreateCurlSmtp() {
    static std::once_flag once;
    std::call_once(once, [] {
        curl_global_init(CURL_GLOBAL_DEFAULT);
        std::atexit(curl_global_cleanup);
    });
    return std::make_unique<TCurlSmtp>();
}

TCurlSmtp::TCurlSmtp() = default;

TCurlSmtp::~TCurlSmtp() {
    if (handle) curl_easy_cleanup(Easy(handle));
}

void TCurlSmtp::Queue(std::function<void()> event) {
    {
        std::lock_guard lock(mutex);
        events.push_back(std::move(event));
    }
    wake.notify_all();
}

void TCurlSmtp::DeliverEvents() {
    for (;;) {
        std::function<void()> event;
        {
            std::lock_guard lock(mutex);
            if (events.empty()) return;
            event = std::move(events.front());
            events.pop_front();
        }
        event();
    }
}

int TCurlSmtp::Run(const std::function<int()>& work) {
    workDone = false;
    int result = 0;
    std::thread worker([&] {
        const int code = work();
        {
            std::lock_guard lock(mutex);
            result = code;
            workDone = true;
        }
        wake.notify_all();
    });
    for (;;) {
        DeliverEvents();
        if (Application) Application->ProcessMessages();
        std::unique_lock lock(mutex);
        if (workDone && events.empty()) break;
        wake.wait_for(lock, std::chrono::milliseconds(10),
                      [this] { return workDone || !events.empty(); });
    }
    worker.join();
    return result;
}

void TCurlSmtp::SocketOpened() {
    Queue([this] { Fire(OnHostResolved); });
}

// A reply line of the server. The first is the greeting; a refusal that
// answers RCPT names the recipient it refused.
void TCurlSmtp::SawReply(const std::string& line) {
    Queue([this, line] { Fire(OnStatus, AnsiString(line)); });
    if (!greeted) {
        greeted = true;
        Queue([this] { Fire(OnConnect); });
    }
    const bool last = line.size() < 4 || line[3] != '-';
    const bool refused = !line.empty() && (line[0] == '4' || line[0] == '5');
    if (last && refused && lastCommand.rfind("RCPT TO:", 0) == 0) {
        const std::string recipient = AddressIn(lastCommand.substr(8));
        Queue([this, recipient] { Fire(OnRecipientNotFound, AnsiString(recipient)); });
    }
}

void TCurlSmtp::SawCommand(const std::string& line) {
    lastCommand = line;
    if (line.rfind("AUTH ", 0) == 0) loggedIn = true;
}

std::size_t TCurlSmtp::ReadBody(char* buffer, std::size_t capacity) {
    const std::size_t count = outgoing ? outgoing->Read(buffer, capacity) : 0;
    if (count) Queue([this] { Fire(OnPacketSent); });
    return count;
}

// The settings every exchange of one connection shares; curl reuses the
// connection only while they stay the same.
bool TCurlSmtp::Configure(const std::string& url) {
    CURL* easy = Easy(handle);
    const long timeout = Timeout();
    curl_easy_setopt(easy, CURLOPT_URL, url.c_str());
    curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "smtp");
    curl_easy_setopt(easy, CURLOPT_PROXY, ""); // mail never goes through a proxy
    curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT, timeout);
    curl_easy_setopt(easy, CURLOPT_SERVER_RESPONSE_TIMEOUT, timeout);
    curl_easy_setopt(easy, CURLOPT_LOW_SPEED_LIMIT, 1L);
    curl_easy_setopt(easy, CURLOPT_LOW_SPEED_TIME, timeout);
    curl_easy_setopt(easy, CURLOPT_USE_SSL,
                     !StartTls    ? CURLUSESSL_NONE
                     : RequireTls ? CURLUSESSL_ALL
                                  : CURLUSESSL_TRY);
    if (const char* extra = std::getenv("VELLUMDESK_SMTP_CA_FILE"); extra && *extra) {
        char* system = nullptr;
        curl_easy_getinfo(easy, CURLINFO_CAINFO, &system);
        caBundle = (system ? ReadWhole(system) : std::string()) + "\n" + ReadWhole(extra);
        curl_blob blob{caBundle.data(), caBundle.size(), CURL_BLOB_NOCOPY};
        curl_easy_setopt(easy, CURLOPT_CAINFO_BLOB, &blob);
    }
    if (!UserID.IsEmpty()) {
        curl_easy_setopt(easy, CURLOPT_USERNAME, UserID.c_str());
        curl_easy_setopt(easy, CURLOPT_PASSWORD, Password.c_str());
    }
    curl_easy_setopt(easy, CURLOPT_VERBOSE, 1L); // the debug callback sees the exchange
    curl_easy_setopt(easy, CURLOPT_DEBUGFUNCTION, OnDebug);
    curl_easy_setopt(easy, CURLOPT_DEBUGDATA, this);
    curl_easy_setopt(easy, CURLOPT_OPENSOCKETFUNCTION, OnOpenSocket);
    curl_easy_setopt(easy, CURLOPT_OPENSOCKETDATA, this);
    curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, OnWrite);
    curl_easy_setopt(easy, CURLOPT_READFUNCTION, OnRead);
    curl_easy_setopt(easy, CURLOPT_READDATA, this);
    return true;
}

void TCurlSmtp::Close() {
    if (!handle) return;
    CURL* easy = Easy(handle);
    handle = nullptr;
    Run([easy] {
        curl_easy_cleanup(easy); // sends QUIT on a connection still open
        return 0;
    });
}

void TCurlSmtp::Connect() {
    Close();
    Connected = 0;
    greeted = loggedIn = false;
    lastCommand.clear();
    const std::optional<TSmtpHost> host = ParseSmtpHost(Host.str(), Port);
    if (!host) {
        bool handled = false;
        Fire(OnInvalidHost, handled);
        return;
    }
    handle = curl_easy_init();
    if (!handle) {
        Fire(OnConnectionFailed);
        return;
    }
    Configure(host->Url());
    curl_easy_setopt(Easy(handle), CURLOPT_CUSTOMREQUEST, "NOOP");
    const int code = Run([this] { return static_cast<int>(curl_easy_perform(Easy(handle))); });
    curl_easy_setopt(Easy(handle), CURLOPT_CUSTOMREQUEST, nullptr);
    if (code == CURLE_OK && RequireAuth && !UserID.IsEmpty() && !loggedIn)
        return ReportConnectFailure(CURLE_LOGIN_DENIED);
    if (code != CURLE_OK) return ReportConnectFailure(code);
    Connected = 1;
}

void TCurlSmtp::ReportConnectFailure(int code) {
    Close();
    bool handled = false;
    if (code == CURLE_COULDNT_RESOLVE_HOST || code == CURLE_URL_MALFORMAT)
        Fire(OnInvalidHost, handled);
    else if (code == CURLE_LOGIN_DENIED)
        Fire(OnAuthenticationFailed, handled);
    else
        Fire(OnConnectionFailed);
}

void TCurlSmtp::Disconnect() {
    const bool was = handle != nullptr;
    Close();
    Connected = 0;
    if (was) Fire(OnDisconnect);
}

void TCurlSmtp::SendMail() {
    if (!Connected || !handle) return Fire(OnConnectionRequired);
    ExtraHeaders.Clear();
    if (const std::optional<std::string> refusal = TOutgoingMail::Refusal(PostMessage)) {
        Fire(OnStatus, AnsiString(*refusal));
        return Fire(OnFailure);
    }
    if (TOutgoingMail::RecipientOf(PostMessage).empty()) {
        bool handled = false;
        return Fire(OnHeaderIncomplete, handled, 1); // part 1: the recipient
    }
    Fire(OnSendStart);
    outgoing = std::make_unique<TOutgoingMail>(PostMessage, ExtraHeaders, MailSender.str());
    CURL* easy = Easy(handle);
    curl_slist* recipients =
        curl_slist_append(nullptr, ("<" + outgoing->Recipient() + ">").c_str());
    curl_easy_setopt(easy, CURLOPT_MAIL_FROM, ("<" + outgoing->MailFrom() + ">").c_str());
    curl_easy_setopt(easy, CURLOPT_MAIL_RCPT, recipients);
    curl_easy_setopt(easy, CURLOPT_UPLOAD, 1L);
    curl_easy_setopt(easy, CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(outgoing->Size()));
    const int code = Run([easy] { return static_cast<int>(curl_easy_perform(easy)); });
    curl_easy_setopt(easy, CURLOPT_MAIL_RCPT, nullptr);
    curl_easy_setopt(easy, CURLOPT_UPLOAD, 0L);
    curl_slist_free_all(recipients);
    outgoing.reset();
    if (code == CURLE_OK)
        Fire(OnSuccess);
    else
        Fire(OnFailure);
}
