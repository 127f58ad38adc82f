#include "platform/linux/SmtpHost.h"

#include <cctype>

namespace {

bool IsHostName(const std::string& name) {
    if (name.empty() || name.size() > 253) return false;
    for (const char c : name)
        if (!std::isalnum(static_cast<unsigned char>(c)) && c != '-' && c != '.' && c != '_')
            return false;
    return true;
}

bool IsIpv6(const std::string& name) {
    if (name.empty()) return false;
    for (const char c : name)
        if (!std::isxdigit(static_cast<unsigned char>(c)) && c != ':' && c != '.') return false;
    return true;
}

bool UnderInvalid(std::string name) {
    for (char& c : name)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    while (!name.empty() && name.back() == '.')
        name.pop_back();
    return name == "invalid" || (name.size() > 8 && name.ends_with(".invalid"));
}

std::optional<int> ParsePort(const std::string& text) {
    if (text.empty() || text.size() > 5) return std::nullopt;
    int port = 0;
    for (const char c : text) {
        if (!std::isdigit(static_cast<unsigned char>(c))) return std::nullopt;
        port = port * 10 + (c - '0');
    }
    if (port < 1 || port > 65535) return std::nullopt;
    return port;
}

} // namespace

std::string TSmtpHost::Url() const {
    const bool v6 = Name.find(':') != std::string::npos;
    return "smtp://" + (v6 ? "[" + Name + "]" : Name) + ":" + std::to_string(Port);
}

std::optional<TSmtpHost> ParseSmtpHost(const std::string& text, int defaultPort) {
    TSmtpHost host;
    host.Port = defaultPort;
    std::string rest = text;
    if (!rest.empty() && rest.front() == '[') {
        const auto close = rest.find(']');
        if (close == std::string::npos) return std::nullopt;
        host.Name = rest.substr(1, close - 1);
        rest = rest.substr(close + 1);
        if (!IsIpv6(host.Name)) return std::nullopt;
    } else {
        const auto colon = rest.find(':');
        host.Name = rest.substr(0, colon);
        rest = colon == std::string::npos ? "" : rest.substr(colon);
        if (!IsHostName(host.Name) || UnderInvalid(host.Name)) return std::nullopt;
    }
    if (!rest.empty()) {
        if (rest.front() != ':') return std::nullopt;
        const std::optional<int> port = ParsePort(rest.substr(1));
        if (!port) return std::nullopt;
        host.Port = *port;
    }
    return host;
}
