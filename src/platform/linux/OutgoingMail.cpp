#include "platform/linux/OutgoingMail.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <random>
#include <unistd.h>

namespace {

bool HasLineBreak(std::string_view text) {
    return text.find_first_of("\r\n") != std::string_view::npos;
}

bool StartsWithField(const std::string& line, std::string_view name) {
    if (line.size() <= name.size() || line[name.size()] != ':') return false;
    for (std::size_t i = 0; i < name.size(); ++i)
        if (std::tolower(static_cast<unsigned char>(line[i])) != name[i]) return false;
    return true;
}

bool HeadHas(const TStringList& head, std::string_view name) {
    for (const AnsiString& line : head)
        if (StartsWithField(line.str(), name)) return true;
    return false;
}

std::string Trim(std::string_view text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(" \t") - first + 1));
}

std::string LocalMailbox() {
    char host[256] = "localhost";
    ::gethostname(host, sizeof host - 1);
    const char* user = std::getenv("USER");
    return std::string(user && *user ? user : "vellumdesk") + "@" + host;
}

// The mailbox of Resent-From: the sender text when it names an address, else
// the envelope's address, else the local user's.
std::string SenderMailbox(const std::string& senderText, const std::string& mailFrom) {
    if (!AddressIn(senderText).empty()) return senderText;
    const std::string address = mailFrom.empty() ? LocalMailbox() : mailFrom;
    const std::string name = Trim(senderText);
    if (name.empty()) return "<" + address + ">";
    return "\"" + name + "\" <" + address + ">";
}

std::string MessageId(const std::string& mailbox) {
    const std::string address = AddressIn(mailbox);
    const auto at = address.rfind('@');
    const std::string domain = at == std::string::npos ? "localhost" : address.substr(at + 1);
    std::random_device random;
    char id[64];
    std::snprintf(id, sizeof id, "%lld.%08x%08x", static_cast<long long>(std::time(nullptr)),
                  random(), random());
    return "<" + std::string(id) + "@" + domain + ">";
}

bool IsUtf8(std::string_view text) {
    for (std::size_t i = 0; i < text.size();) {
        const auto c = static_cast<unsigned char>(text[i]);
        const int extra = c < 0x80         ? 0
                          : (c >> 5) == 6  ? 1
                          : (c >> 4) == 14 ? 2
                          : (c >> 3) == 30 ? 3
                                           : -1;
        if (extra < 0 || i + static_cast<std::size_t>(extra) >= text.size()) return false;
        for (int k = 1; k <= extra; ++k)
            if ((static_cast<unsigned char>(text[i + k]) >> 6) != 2) return false;
        i += static_cast<std::size_t>(extra) + 1;
    }
    return true;
}

std::string Base64(std::string_view bytes) {
    static const char digits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string out;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        unsigned value = static_cast<unsigned char>(bytes[i]) << 16;
        if (i + 1 < bytes.size()) value |= static_cast<unsigned char>(bytes[i + 1]) << 8;
        if (i + 2 < bytes.size()) value |= static_cast<unsigned char>(bytes[i + 2]);
        out += digits[(value >> 18) & 63];
        out += digits[(value >> 12) & 63];
        out += i + 1 < bytes.size() ? digits[(value >> 6) & 63] : '=';
        out += i + 2 < bytes.size() ? digits[value & 63] : '=';
    }
    return out;
}

} // namespace

std::string AddressIn(const std::string& text) {
    const auto open = text.rfind('<');
    const auto close = open == std::string::npos ? open : text.find('>', open);
    if (close != std::string::npos) {
        const std::string inside = Trim(std::string_view(text).substr(open + 1, close - open - 1));
        if (inside.find('@') != std::string::npos) return inside;
    }
    std::size_t start = 0;
    while (start < text.size()) {
        const auto end = text.find_first_of(" \t,;", start);
        std::string word = text.substr(start, end == std::string::npos ? end : end - start);
        while (!word.empty() && std::strchr("<>\"'()", word.front()))
            word.erase(0, 1);
        while (!word.empty() && std::strchr("<>\"'()", word.back()))
            word.pop_back();
        if (word.find('@') != std::string::npos) return word;
        if (end == std::string::npos) break;
        start = end + 1;
    }
    return {};
}

std::string MailDate(const std::string& stamp) {
    std::tm parts{};
    int month = 0, day = 0, year = 0, hour = 0, minute = 0, second = 0;
    char end = 0;
    std::time_t moment = std::time(nullptr);
    if (std::sscanf(stamp.c_str(), "%2d.%2d.%4d.%2d.%2d.%2d%c", &month, &day, &year, &hour, &minute,
                    &second, &end) == 6 &&
        month >= 1 && month <= 12 && day >= 1 && day <= 31) {
        parts.tm_year = year - 1900;
        parts.tm_mon = month - 1;
        parts.tm_mday = day;
        parts.tm_hour = hour;
        parts.tm_min = minute;
        parts.tm_sec = second;
        parts.tm_isdst = -1;
        if (const std::time_t made = std::mktime(&parts); made != -1) moment = made;
    }
    std::tm local{};
    ::localtime_r(&moment, &local);
    static const char* const days[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    static const char* const months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                         "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const long offset = local.tm_gmtoff / 60;
    char text[64];
    std::snprintf(text, sizeof text, "%s, %d %s %04d %02d:%02d:%02d %c%02ld%02ld",
                  days[local.tm_wday], local.tm_mday, months[local.tm_mon], local.tm_year + 1900,
                  local.tm_hour, local.tm_min, local.tm_sec, offset < 0 ? '-' : '+',
                  std::labs(offset) / 60, std::labs(offset) % 60);
    return text;
}

std::vector<std::string> EncodeHeaderText(const std::string& name, const std::string& text) {
    const bool plain = std::all_of(text.begin(), text.end(),
                                   [](char c) { return c == '\t' || (c >= 0x20 && c < 0x7f); });
    if (plain) return {name + ": " + text};
    const bool utf8 = IsUtf8(text);
    const std::string prefix = utf8 ? "=?UTF-8?B?" : "=?windows-1252?B?";
    std::vector<std::string> lines;
    // 45 bytes make 60 characters of Base64: each encoded word stays under 76.
    for (std::size_t start = 0; start < text.size();) {
        std::size_t end = std::min(text.size(), start + 45);
        while (utf8 && end < text.size() && (static_cast<unsigned char>(text[end]) >> 6) == 2)
            --end;
        const std::string word =
            prefix + Base64(std::string_view(text).substr(start, end - start)) + "?=";
        lines.push_back(lines.empty() ? name + ": " + word : " " + word);
        start = end;
    }
    return lines;
}

std::optional<std::string> TOutgoingMail::Refusal(const TPostMessage& post) {
    if (post.ToAddress.Count() > 1) return "refused: a line break in the recipient";
    if (HasLineBreak(post.FromAddress)) return "refused: a line break in the sender text";
    if (HasLineBreak(post.Subject)) return "refused: a line break in the subject";
    return std::nullopt;
}

std::string TOutgoingMail::RecipientOf(const TPostMessage& post) {
    const std::string to = post.ToAddress.Count() ? post.ToAddress[0].str() : std::string();
    const std::string address = AddressIn(to);
    return address.empty() ? Trim(to) : address;
}

TOutgoingMail::TOutgoingMail(const TPostMessage& post, const TStringList& extraHeaders,
                             const std::string& mailSender) {
    recipient = RecipientOf(post);
    mailFrom = AddressIn(mailSender);
    if (mailFrom.empty()) mailFrom = Trim(mailSender);
    if (mailFrom.empty()) mailFrom = AddressIn(post.FromAddress.str());
    AddOwnHeaders(post, extraHeaders);
    for (const std::string& header : ownHeaders)
        AddLine(header);
    for (const AnsiString& header : extraHeaders)
        AddLine(header.str());
    // The header ends at the first empty line. The body brings its own when
    // it begins with one (the saved message's blank line after its head);
    // one is added only where the note would otherwise run into the header.
    if (post.Body.Count() > 0 && !post.Body[0].IsEmpty()) AddLine({});
    for (const AnsiString& bodyLine : post.Body)
        AddLine(bodyLine.str());
}

// The saved head keeps its own From, Date and Subject, which a valid message
// has only once: the forward is told by the resent block (Resent-From,
// Resent-Date, Resent-To, Resent-Message-ID), added at the top as a new
// block of trace fields should be. From, Date and Subject are written only
// where the saved head lacks them. The typed subject then shows as the
// Subject of a message without one; where the head has its own, it goes into
// a Comments field, the one free-text field a message may repeat, which mail
// programs show among the header fields.
void TOutgoingMail::AddOwnHeaders(const TPostMessage& post, const TStringList& extraHeaders) {
    const std::string from = SenderMailbox(post.FromAddress.str(), mailFrom);
    const std::string date = MailDate(post.Date.str());
    const std::string to = post.ToAddress.Count() ? post.ToAddress[0].str() : std::string();
    ownHeaders = {"Resent-From: " + from, "Resent-Date: " + date, "Resent-To: " + to,
                  "Resent-Message-ID: " + MessageId(from)};
    if (!HeadHas(extraHeaders, "from")) ownHeaders.push_back("From: " + from);
    if (!HeadHas(extraHeaders, "date")) ownHeaders.push_back("Date: " + date);
    const std::string subject = post.Subject.str();
    const bool own = !HeadHas(extraHeaders, "subject");
    if (own || !subject.empty())
        for (std::string& line : EncodeHeaderText(own ? "Subject" : "Comments", subject))
            ownHeaders.push_back(std::move(line));
}

void TOutgoingMail::AddLine(std::string text) {
    size += text.size() + 2;
    lines.push_back(std::move(text));
}

std::size_t TOutgoingMail::Read(char* buffer, std::size_t capacity) {
    std::size_t written = 0;
    while (written < capacity && line < lines.size()) {
        const std::string& current = lines[line];
        const std::size_t total = current.size() + 2;
        static const char lineEnd[] = "\r\n";
        const std::size_t count = std::min(capacity - written, total - offset);
        const std::size_t fromText =
            offset < current.size() ? std::min(count, current.size() - offset) : 0;
        std::memcpy(buffer + written, current.data() + offset, fromText);
        if (count > fromText)
            std::memcpy(buffer + written + fromText, lineEnd + (offset + fromText - current.size()),
                        count - fromText);
        written += count;
        offset += count;
        if (offset == total) {
            ++line;
            offset = 0;
        }
    }
    return written;
}
