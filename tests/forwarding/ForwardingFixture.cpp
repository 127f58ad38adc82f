#include "ForwardingFixture.h"

#include <gtest/gtest.h>

#include "platform/linux/CurlSmtp.h"

namespace {

struct TServers {
    TTempFolder folder;
    std::string certificate, key;
    std::unique_ptr<TSmtpTestServer> plain, tls;
};

TServers& Servers() {
    static TServers servers;
    return servers;
}

} // namespace

TSmtpTestServer& PlainServer() {
    TServers& servers = Servers();
    if (!servers.plain)
        servers.plain = std::make_unique<TSmtpTestServer>(
            TSmtpServerOptions{"", "", serverUser, serverPassword});
    return *servers.plain;
}

TSmtpTestServer& TlsServer() {
    TServers& servers = Servers();
    if (!servers.tls) {
        MakeCertificate(servers.folder.Path(), servers.certificate, servers.key);
        servers.tls = std::make_unique<TSmtpTestServer>(
            TSmtpServerOptions{servers.certificate, servers.key, "", ""});
    }
    return *servers.tls;
}

const std::string& CaFile() {
    TlsServer();
    return Servers().certificate;
}

ConfigRecord SmtpConfig(const std::string& host, const std::string& user,
                        const std::string& password, const std::string& sender) {
    ConfigRecord record;
    const auto put = [&record](std::size_t offset, const std::string& text) {
        for (std::size_t i = 0; i < text.size(); ++i)
            record.Bytes[offset + i] = static_cast<unsigned char>(text[i]);
    };
    put(ConfigRecord::smtpHost, host);
    put(ConfigRecord::smtpText2, user);
    put(ConfigRecord::smtpText3, password);
    put(ConfigRecord::smtpText4, sender);
    return record;
}

std::string CrLf(const std::string& lfText) {
    std::string out;
    for (const char c : lfText) {
        if (c == '\n') out += '\r';
        out += c;
    }
    return out;
}

std::string WithoutOwnHeaders(const std::string& data) {
    std::size_t at = 0;
    while (data.compare(at, 7, "Resent-") == 0)
        at = data.find("\r\n", at) + 2;
    return data.substr(at);
}

std::string FieldOf(const std::string& text, const std::string& name) {
    const std::string key = "\r\n" + name + ": ";
    const std::string padded = "\r\n" + text;
    const auto at = padded.find(key);
    if (at == std::string::npos) return {};
    const auto start = at + key.size();
    return padded.substr(start, padded.find("\r\n", start) - start);
}

TForwardingTest::TForwardingTest() {
    CreateSmtpClient = CreateCurlSmtp;
}

TForwardingTest::~TForwardingTest() {
    CreateSmtpClient = nullptr;
}
