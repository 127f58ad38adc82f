// The header lines and the wire text the SMTP component writes itself, and
// how it reads the server setting.

#include <gtest/gtest.h>

#include "platform/linux/OutgoingMail.h"
#include "platform/linux/SmtpHost.h"

namespace {

struct THostCase {
    std::string text;
    bool valid;
    std::string url;
};

TEST(OutgoingMailTest, ReadsTheServerSetting) {
    const THostCase cases[] = {
        {"mail.example.org", true, "smtp://mail.example.org:25"},
        {"127.0.0.1:2525", true, "smtp://127.0.0.1:2525"},
        {"[::1]:587", true, "smtp://[::1]:587"},
        {"", false, ""},
        {"mail.example.org:", false, ""},
        {"mail.example.org:0", false, ""},
        {"mail.example.org:65536", false, ""},
        {"mail.example.org:25x", false, ""},
        {"bad host", false, ""},
        {"evil/path", false, ""},
        {"nohost.invalid", false, ""},
        {"NoHost.INVALID.", false, ""},
        {"invalid", false, ""},
        {"invalid.example.org", true, "smtp://invalid.example.org:25"},
    };
    for (const THostCase& c : cases) {
        const auto host = ParseSmtpHost(c.text, 25);
        EXPECT_EQ(host.has_value(), c.valid) << c.text;
        if (host) {
            EXPECT_EQ(host->Url(), c.url) << c.text;
        }
    }
}

TEST(OutgoingMailTest, FindsTheAddressInASenderOrRecipientText) {
    const std::pair<std::string, std::string> cases[] = {
        {"Sam Reader <sam@quillpost.example>", "sam@quillpost.example"},
        {"sam@quillpost.example", "sam@quillpost.example"},
        {"\"Reader, Sam\" <sam@quillpost.example>", "sam@quillpost.example"},
        {"Sam (sam@quillpost.example)", "sam@quillpost.example"},
        {"Sam Reader", ""},
        {"", ""},
    };
    for (const auto& [text, address] : cases)
        EXPECT_EQ(AddressIn(text), address) << text;
}

TEST(OutgoingMailTest, TurnsTheTimeStampIntoAMailDate) {
    setenv("TZ", "UTC", 1);
    tzset();
    EXPECT_EQ(MailDate("11.23.2026.10.30.05"), "Mon, 23 Nov 2026 10:30:05 +0000");
    EXPECT_EQ(MailDate("02.29.2024.23.59.59"), "Thu, 29 Feb 2024 23:59:59 +0000");
    // Anything else is the present moment, in the same form.
    const std::string now = MailDate("not a stamp");
    EXPECT_EQ(now.substr(now.size() - 6), " +0000");
    EXPECT_EQ(now[3], ',');
}

TEST(OutgoingMailTest, EncodesASubjectThatIsNotPlainAscii) {
    const std::pair<std::string, std::vector<std::string>> cases[] = {
        {"Plain words", {"Subject: Plain words"}},
        {"Caf\xc3\xa9", {"Subject: =?UTF-8?B?Q2Fmw6k=?="}},
        {"Caf\xe9", {"Subject: =?windows-1252?B?Q2Fm6Q==?="}},
        // An encoded word never ends inside a character.
        {std::string(44, 'a') + "\xc3\xa9",
         {"Subject: =?UTF-8?B?YWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWFhYWE=?=",
          " =?UTF-8?B?w6k=?="}},
    };
    for (const auto& [text, lines] : cases)
        EXPECT_EQ(EncodeHeaderText("Subject", text), lines) << text;
}

TPostMessage Post(const std::string& sender, const std::string& to, const std::string& subject,
                  const std::string& body) {
    TPostMessage post;
    post.FromAddress = AnsiString(sender);
    post.ToAddress.SetText(to);
    post.Subject = AnsiString(subject);
    post.Date = "11.23.2026.10.30.05";
    post.Body.SetText(body);
    return post;
}

std::string Wire(TOutgoingMail& mail, std::size_t chunk) {
    std::string out;
    std::vector<char> buffer(chunk);
    while (const std::size_t got = mail.Read(buffer.data(), buffer.size()))
        out.append(buffer.data(), got);
    return out;
}

TEST(OutgoingMailTest, WritesTheResentBlockAndOnlyWhatTheHeadLacks) {
    TStringList head;
    head.SetText("From: a@example.org\nDate: Mon, 2 Nov 2026 10:00:00 +0000\nSubject: Hello");
    TOutgoingMail withHead(
        Post("Sam <sam@quillpost.example>", "Bob <bob@example.org>", "FW: Hello", "\nbody"), head,
        "");
    const std::vector<std::string>& own = withHead.OwnHeaders();
    ASSERT_EQ(own.size(), 5u);
    EXPECT_EQ(own[0], "Resent-From: Sam <sam@quillpost.example>");
    EXPECT_EQ(own[1].rfind("Resent-Date: ", 0), 0u);
    EXPECT_EQ(own[2], "Resent-To: Bob <bob@example.org>");
    EXPECT_EQ(own[3].rfind("Resent-Message-ID: <", 0), 0u);
    EXPECT_NE(own[3].find("@quillpost.example>"), std::string::npos);
    EXPECT_EQ(own[4], "Comments: FW: Hello");
    EXPECT_EQ(withHead.Recipient(), "bob@example.org");
    EXPECT_EQ(withHead.MailFrom(), "sam@quillpost.example");

    TOutgoingMail headless(Post("Sam Reader", "bob@example.org", "Note", "\nbody"), TStringList(),
                           "bounce@quillpost.example");
    const std::vector<std::string>& added = headless.OwnHeaders();
    ASSERT_EQ(added.size(), 7u);
    EXPECT_EQ(added[0], "Resent-From: \"Sam Reader\" <bounce@quillpost.example>");
    EXPECT_EQ(added[4], "From: \"Sam Reader\" <bounce@quillpost.example>");
    EXPECT_EQ(added[5].rfind("Date: ", 0), 0u);
    EXPECT_EQ(added[6], "Subject: Note");
}

TEST(OutgoingMailTest, StreamsTheSameBytesWhateverTheChunkSize) {
    TStringList head;
    head.SetText("From: a@example.org\nDate: x\nSubject: s");
    for (const std::size_t chunk : {1u, 2u, 3u, 7u, 64u, 65536u}) {
        TOutgoingMail mail(Post("a@example.org", "b@example.org", "", "note\n\nlast"), head, "");
        const std::string wire = Wire(mail, chunk);
        EXPECT_EQ(wire.size(), mail.Size()) << chunk;
        const std::string tail =
            "From: a@example.org\r\nDate: x\r\nSubject: s\r\n\r\nnote\r\n\r\nlast\r\n";
        EXPECT_EQ(wire.substr(wire.size() - tail.size()), tail) << chunk;
    }
}

TEST(OutgoingMailTest, RefusesLineBreaksInTheTextsThatBecomeCommandsOrFields) {
    EXPECT_FALSE(TOutgoingMail::Refusal(Post("Sam <s@x.org>", "b@x.org", "Hi", "")));
    EXPECT_TRUE(TOutgoingMail::Refusal(Post("Sam <s@x.org>", "b@x.org\nc@x.org", "Hi", "")));
    EXPECT_TRUE(TOutgoingMail::Refusal(Post("Sam\n<s@x.org>", "b@x.org", "Hi", "")));
    EXPECT_TRUE(TOutgoingMail::Refusal(Post("Sam <s@x.org>", "b@x.org", "Hi\rBcc: e@x.org", "")));
}

} // namespace
