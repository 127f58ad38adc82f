#pragma once
// What the SMTP component puts on the wire for one message: the envelope,
// the header lines it writes on its own account, and the text of DATA,
// streamed with CR LF line ends whatever the lines held before.

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "foundation/StringList.h"
#include "platform/PostMessage.h"

class TOutgoingMail {
public:
    // Why the message cannot go out as it stands (a line break inside the
    // recipient, sender or subject would start a new command or header
    // line), or nothing.
    static std::optional<std::string> Refusal(const TPostMessage& post);
    // The address of RCPT TO: the one in the text of "To:", else that text.
    static std::string RecipientOf(const TPostMessage& post);

    // post: the message object; extraHeaders: the saved head; mailSender:
    // the configured envelope sender, may be empty.
    TOutgoingMail(const TPostMessage& post, const TStringList& extraHeaders,
                  const std::string& mailSender);

    const std::string& MailFrom() const { return mailFrom; } // "" for <>
    const std::string& Recipient() const { return recipient; }
    const std::vector<std::string>& OwnHeaders() const { return ownHeaders; }
    // The whole text of DATA in bytes, before the server's dot-stuffing.
    std::size_t Size() const { return size; }
    // Copies the next bytes of the text; 0 at the end.
    std::size_t Read(char* buffer, std::size_t capacity);

private:
    void AddOwnHeaders(const TPostMessage& post, const TStringList& extraHeaders);
    void AddLine(std::string line);

    std::string mailFrom, recipient;
    std::vector<std::string> ownHeaders;
    // Every line of the text in order, each to be followed by CR LF.
    std::vector<std::string> lines;
    std::size_t size = 0;
    std::size_t line = 0, offset = 0;
};

// The address inside a text: what stands in angle brackets, else the first
// word with an "@"; empty if there is none.
std::string AddressIn(const std::string& text);
// The program's time stamp "mm.dd.yyyy.hh.nn.ss" (local time) as a date of a
// mail header; a text that is no such stamp gives the present moment.
std::string MailDate(const std::string& stamp);
// A header text as it may stand in a header: unchanged if it is printable
// US-ASCII, else encoded words (UTF-8 if the bytes are UTF-8, else
// Windows-1252), one per folded line.
std::vector<std::string> EncodeHeaderText(const std::string& name, const std::string& text);
