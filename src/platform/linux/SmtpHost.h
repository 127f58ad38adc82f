#pragma once
// The server setting "HOST" or "HOST:PORT" (an IPv6 address in brackets).

#include <optional>
#include <string>

struct TSmtpHost {
    std::string Name;
    int Port = 25;
    // The URL curl is given.
    std::string Url() const;
};

// Nothing for a text that names no host: empty, with characters no host
// name has, a bad port, or a name under "invalid", which by its reservation
// never resolves and is so not even looked up.
std::optional<TSmtpHost> ParseSmtpHost(const std::string& text, int defaultPort);
