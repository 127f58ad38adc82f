// TSMTPFunc with the libcurl component against real servers on 127.0.0.1.

#include <chrono>
#include <gtest/gtest.h>

#include "ForwardingFixture.h"
#include "controls/Panel.h"
#include "forwarding/SMTPFunc.h"
#include "support/EnvOverride.h"

namespace {

class SMTPFuncTest : public TForwardingTest {
public:
    // Fills the message object as the forward dialog does and sends.
    bool Send(TSMTPFunc& smtp, const ConfigRecord& config, const std::string& file,
              const std::string& to, const std::vector<std::string>& note = {},
              const std::string& sender = "Sam Reader <sam@quillpost.example>") {
        smtp.Post->FromAddress = AnsiString(sender);
        smtp.Post->ToAddress.SetText(to);
        smtp.Post->Body.SetText(file);
        smtp.Post->Attachments.SetText("");
        smtp.Post->Subject = "";
        smtp.Post->Date = "11.23.2026.10.30.00";
        TStringList lines;
        for (const std::string& line : note)
            lines.Add(AnsiString(line));
        return smtp.SendPost(config.Bytes.data() + ConfigRecord::smtpBlock, lines);
    }
    std::vector<std::string> Lines(const TStringList& list) { return {list.begin(), list.end()}; }
};

struct TSplitCase {
    const char* name;
    std::string file;
    std::vector<std::string> note;
    std::vector<std::string> head; // HeaderLines after the send
    std::string data;              // DATA after the resent block, LF form
    // A file without a head of its own gets From, Date and Subject in front.
    bool headAdded = false;
};

const std::string plain = "From: A Name <a@example.org>\nDate: Mon, 2 Nov 2026 10:00:00 +0000\n"
                          "Subject: Hello\n\nLine one\n";
const std::string multipartHead =
    "From: a@example.org\nDate: Mon, 2 Nov 2026 10:00:00 +0000\n"
    "Subject: Parts\nContent-Type: multipart/mixed; boundary=\"b1\"\n";

const TSplitCase splitCases[] = {
    {"PlainWithoutNote",
     plain,
     {},
     {"From: A Name <a@example.org>", "Date: Mon, 2 Nov 2026 10:00:00 +0000", "Subject: Hello"},
     plain},
    {"PlainWithTwoLineNote",
     plain,
     {"See below", "Second line"},
     {"From: A Name <a@example.org>", "Date: Mon, 2 Nov 2026 10:00:00 +0000", "Subject: Hello"},
     "From: A Name <a@example.org>\nDate: Mon, 2 Nov 2026 10:00:00 +0000\nSubject: Hello\n\n"
     "See below\nSecond line\n\nLine one\n"},
    {"MultipartWithPreamble",
     multipartHead + "\nThis is a preamble.\n\n--b1\n\npart\n--b1--\n",
     {"Note"},
     {"From: a@example.org", "Date: Mon, 2 Nov 2026 10:00:00 +0000", "Subject: Parts",
      "Content-Type: multipart/mixed; boundary=\"b1\"", "", "This is a preamble."},
     multipartHead + "\nThis is a preamble.\n\nNote\n\n--b1\n\npart\n--b1--\n"},
    {"MultipartWithoutPreamble",
     multipartHead + "\n--b1\nContent-Type: text/plain\n\npart one\n--b1--\n",
     {"Note"},
     {"From: a@example.org", "Date: Mon, 2 Nov 2026 10:00:00 +0000", "Subject: Parts",
      "Content-Type: multipart/mixed; boundary=\"b1\"", "", "--b1", "Content-Type: text/plain"},
     multipartHead + "\n--b1\nContent-Type: text/plain\n\nNote\n\npart one\n--b1--\n"},
    {"FileBeginningWithBlankLine",
     "\nFrom: late@example.org\n\nbody\n",
     {},
     {},
     "\nFrom: late@example.org\n\nbody\n",
     true},
    {"BodyLineOfOneDot",
     plain + ".\n..\n.end\n",
     {},
     {"From: A Name <a@example.org>", "Date: Mon, 2 Nov 2026 10:00:00 +0000", "Subject: Hello"},
     plain + ".\n..\n.end\n"},
    {"NoFinalLineEnd",
     "From: a@example.org\nDate: x\nSubject: s\n\nlast line",
     {},
     {"From: a@example.org", "Date: x", "Subject: s"},
     "From: a@example.org\nDate: x\nSubject: s\n\nlast line\n"},
    {"EightBitBytesUnchanged",
     "From: a@example.org\nDate: x\nSubject: caf\xe9\n\nna\xc3\xafve \xff\n",
     {},
     {"From: a@example.org", "Date: x", "Subject: caf\xe9"},
     "From: a@example.org\nDate: x\nSubject: caf\xe9\n\nna\xc3\xafve \xff\n"},
    {"SubjectNamingBoundaryStopsAtSecondBlank",
     "From: a@example.org\nDate: x\nSubject: The Boundary\n\nfirst\n\nsecond\n",
     {},
     {"From: a@example.org", "Date: x", "Subject: The Boundary", "", "first"},
     "From: a@example.org\nDate: x\nSubject: The Boundary\n\nfirst\n\nsecond\n"},
    {"NoBlankLineAtAll",
     "From: a@example.org\nDate: x\nSubject: only head\n",
     {},
     {"From: a@example.org", "Date: x", "Subject: only head"},
     "From: a@example.org\nDate: x\nSubject: only head\n"},
};

class SMTPFuncSplitTest : public SMTPFuncTest, public ::testing::WithParamInterface<TSplitCase> {};

TEST_P(SMTPFuncSplitTest, SendsTheSavedLinesWithTheNoteWhereTheHeadEnded) {
    const TSplitCase& c = GetParam();
    TSmtpTestServer& server = PlainServer();
    server.Clear();
    TSMTPFunc smtp;
    ASSERT_TRUE(Send(smtp, SmtpConfig(server.Host()), c.file, "bob@example.org", c.note));
    EXPECT_EQ(smtp.LastResult, 0);
    EXPECT_EQ(Lines(smtp.HeaderLines), c.head);
    std::string data = WithoutOwnHeaders(server.Mail(1));
    if (c.headAdded) {
        EXPECT_EQ(data.rfind("From: Sam Reader <sam@quillpost.example>\r\nDate: ", 0), 0u) << data;
        data = data.substr(data.find("\r\nSubject: \r\n") + 13);
    }
    EXPECT_EQ(data, CrLf(c.data));
}

INSTANTIATE_TEST_SUITE_P(Files, SMTPFuncSplitTest, ::testing::ValuesIn(splitCases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(SMTPFuncTest, WorkedExampleLeavesNoteBlankAndBodyInTheBodyList) {
    TSmtpTestServer& server = PlainServer();
    TSMTPFunc smtp;
    ASSERT_TRUE(Send(smtp, SmtpConfig(server.Host()), "From: A Name\nSubject: Hello\n\nLine one\n",
                     "bob@example.org", {"See below"}));
    EXPECT_EQ(Lines(smtp.HeaderLines),
              (std::vector<std::string>{"From: A Name", "Subject: Hello"}));
    EXPECT_EQ(Lines(smtp.Post->Body), (std::vector<std::string>{"See below", "", "Line one"}));
    EXPECT_EQ(Lines(smtp.Smtp->ExtraHeaders), Lines(smtp.HeaderLines));
}

TEST_F(SMTPFuncTest, TwentyMegabytesGoOutWhole) {
    TSmtpTestServer& server = PlainServer();
    server.Clear();
    std::string file = "From: a@example.org\nDate: x\nSubject: big\n\n";
    const std::string line(99, 'x');
    while (file.size() < 20u << 20)
        file += line + "\n";
    TSMTPFunc smtp;
    ASSERT_TRUE(Send(smtp, SmtpConfig(server.Host()), file, "bob@example.org"));
    EXPECT_TRUE(WithoutOwnHeaders(server.Mail(1)) == CrLf(file));
}

// How a send ends: the result, the code, and whether anything of the mail
// reached the server.
struct TOutcomeCase {
    const char* name;
    std::string host; // "plain", "closing", "refused", "silent" or a text
    std::string to;
    std::string sender;
    bool sent;
    int lastResult;
    bool mailCommand; // the server saw MAIL FROM
};

const TOutcomeCase outcomeCases[] = {
    {"Delivered", "plain", "bob@example.org", "Sam <sam@quillpost.example>", true, 0, true},
    {"RefusedRecipient", "plain", "refused@example.org", "sam@quillpost.example", false, 6, true},
    {"RejectedAfterData", "plain", "reject-data@example.org", "sam@quillpost.example", false, 6,
     true},
    {"ServerClosesInData", "closing", "bob@example.org", "sam@quillpost.example", false, 6, false},
    {"ConnectionRefused", "refused", "bob@example.org", "sam@quillpost.example", false, 4, false},
    {"UnknownHost", "nohost.invalid", "bob@example.org", "sam@quillpost.example", false, 2, false},
    {"HostWithBadPort", "127.0.0.1:99999", "bob@example.org", "sam@quillpost.example", false, 2,
     false},
    {"EmptyHost", "", "bob@example.org", "sam@quillpost.example", false, 2, false},
    {"LineBreakInRecipient", "plain", "bob@example.org\r\nRCPT TO:<eve@example.org>",
     "sam@quillpost.example", false, 6, false},
    {"LineBreakInSender", "plain", "bob@example.org", "Sam\r\nBcc: eve@example.org", false, 6,
     false},
    {"CarriageReturnInSender", "plain", "bob@example.org", "Sam\rX: y", false, 6, false},
    {"EmptyRecipient", "plain", "", "sam@quillpost.example", false, 3, false},
};

class SMTPFuncOutcomeTest : public SMTPFuncTest,
                            public ::testing::WithParamInterface<TOutcomeCase> {};

TEST_P(SMTPFuncOutcomeTest, EndsWithTheEventOfWhatHappened) {
    const TOutcomeCase& c = GetParam();
    TSmtpTestServer& server = PlainServer();
    server.Clear();
    TClosingServer closing;
    std::string host = c.host;
    if (host == "plain") host = server.Host();
    if (host == "closing") host = "127.0.0.1:" + std::to_string(closing.Port());
    if (host == "refused") host = "127.0.0.1:" + std::to_string(ClosedPort());
    const std::string file = "From: a@example.org\nDate: x\nSubject: s\n\nbody\n";
    TSMTPFunc smtp;
    smtp.LastResult = 99;
    EXPECT_EQ(Send(smtp, SmtpConfig(host), file, c.to, {"note"}, c.sender), c.sent);
    EXPECT_EQ(smtp.LastResult, c.lastResult);
    EXPECT_EQ(server.Log().find("MAIL <") != std::string::npos, c.mailCommand) << server.Log();
    EXPECT_EQ(server.Log().find("DATA") != std::string::npos && c.sent, c.sent);
    EXPECT_EQ(server.MailCount(), c.sent ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(Ends, SMTPFuncOutcomeTest, ::testing::ValuesIn(outcomeCases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(SMTPFuncTest, ConnectionFailureLeavesTheBodyListUntouched) {
    TSMTPFunc smtp;
    const std::string host = "127.0.0.1:" + std::to_string(ClosedPort());
    EXPECT_FALSE(Send(smtp, SmtpConfig(host), "From: a\n\nbody\n", "bob@example.org", {"note"}));
    EXPECT_EQ(Lines(smtp.Post->Body), (std::vector<std::string>{"From: a", "", "body"}));
    EXPECT_EQ(smtp.HeaderLines.Count(), 0);
}

TEST_F(SMTPFuncTest, ServerThatStaysSilentFailsWithinTheTimeOut) {
    TEnvOverride env;
    env.Set("VELLUMDESK_SMTP_TIMEOUT", "2");
    TSilentServer silent;
    TSMTPFunc smtp;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(Send(smtp, SmtpConfig("127.0.0.1:" + std::to_string(silent.Port())),
                      "From: a\n\nb\n", "bob@example.org"));
    EXPECT_EQ(smtp.LastResult, 4);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST_F(SMTPFuncTest, FailedSendThenGoodOneReturnsToZero) {
    TSmtpTestServer& server = PlainServer();
    TSMTPFunc smtp;
    EXPECT_FALSE(Send(smtp, SmtpConfig(server.Host()), "From: a\n\nb\n", "refused@example.org"));
    EXPECT_EQ(smtp.LastResult, 6);
    EXPECT_TRUE(Send(smtp, SmtpConfig(server.Host()), "From: a\n\nb\n", "bob@example.org"));
    EXPECT_EQ(smtp.LastResult, 0);
}

struct TEnvelopeCase {
    const char* name;
    std::string configured, sender, mailFrom;
};

const TEnvelopeCase envelopeCases[] = {
    {"ConfiguredSenderFirst", "bounce@quillpost.example", "Sam <sam@quillpost.example>",
     "MAIL <bounce@quillpost.example>"},
    {"AddressOfTheSenderText", "", "Sam Reader <sam@quillpost.example>",
     "MAIL <sam@quillpost.example>"},
    {"EmptyReversePath", "", "Sam Reader", "MAIL <<>>"},
};

class SMTPFuncEnvelopeTest : public SMTPFuncTest,
                             public ::testing::WithParamInterface<TEnvelopeCase> {};

TEST_P(SMTPFuncEnvelopeTest, ChoosesTheEnvelopeSender) {
    const TEnvelopeCase& c = GetParam();
    TSmtpTestServer& server = PlainServer();
    server.Clear();
    TSMTPFunc smtp;
    ASSERT_TRUE(Send(smtp, SmtpConfig(server.Host(), "", "", c.configured), "From: a\n\nb\n",
                     "Bob <bob@example.org>", {}, c.sender));
    EXPECT_NE(server.Log().find(c.mailFrom + " tls=no\nRCPT <bob@example.org>"), std::string::npos)
        << server.Log();
}

INSTANTIATE_TEST_SUITE_P(Senders, SMTPFuncEnvelopeTest, ::testing::ValuesIn(envelopeCases),
                         [](const auto& info) { return std::string(info.param.name); });

struct TSecurityCase {
    const char* name;
    bool tls, trustCa;
    std::string user, password;
    bool sent;
    int lastResult;
    std::string logPart;
};

const TSecurityCase securityCases[] = {
    {"StartTlsWithTrustedCertificate", true, true, "", "", true, 0, "tls=yes"},
    {"StartTlsWithUntrustedCertificate", true, false, "", "", false, 4, ""},
    {"LoginWithConfiguredNameAndPassword", false, false, "sam", "secret", true, 0, "AUTH ok sam"},
    {"LoginRefused", false, false, "sam", "wrong", false, 5, "AUTH bad sam"},
    {"NoLoginWithoutName", false, false, "", "secret", true, 0, "tls=no"},
};

class SMTPFuncSecurityTest : public SMTPFuncTest,
                             public ::testing::WithParamInterface<TSecurityCase> {};

TEST_P(SMTPFuncSecurityTest, UsesTlsAndLoginAsConfigured) {
    const TSecurityCase& c = GetParam();
    TEnvOverride env;
    env.Set("VELLUMDESK_SMTP_CA_FILE", c.trustCa ? CaFile().c_str() : nullptr);
    TSmtpTestServer& server = c.tls ? TlsServer() : PlainServer();
    server.Clear();
    TSMTPFunc smtp;
    EXPECT_EQ(Send(smtp, SmtpConfig(server.Host(), c.user, c.password), "From: a\n\nb\n",
                   "bob@example.org"),
              c.sent);
    EXPECT_EQ(smtp.LastResult, c.lastResult);
    EXPECT_NE(server.Log().find(c.logPart), std::string::npos) << server.Log();
    if (c.user.empty()) {
        EXPECT_EQ(server.Log().find("AUTH"), std::string::npos);
    }
}

INSTANTIATE_TEST_SUITE_P(Security, SMTPFuncSecurityTest, ::testing::ValuesIn(securityCases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(SMTPFuncTest, GateShowsAndLogsOnlyWhatTheLevelWordLetsThrough) {
    struct TCase {
        std::uint16_t word;
        std::uint16_t level;
        bool shown;
    } cases[] = {{0, 1, false}, {1, 1, true}, {1, 4, false}, {4, 4, true}, {4, 1, true}};
    for (const TCase& c : cases) {
        std::uint16_t word = c.word;
        TSMTPFunc smtp(&word);
        TPanel status(nullptr, "status");
        smtp.StatusControl = &status;
        EXPECT_EQ(smtp.Report(c.level, "Text %d", 7), "Text 7");
        EXPECT_EQ(status.Caption(), c.shown ? "Text 7" : "") << c.word << " " << c.level;
        EXPECT_STREQ(smtp.Message, "Text 7");
    }
}

TEST_F(SMTPFuncTest, ReportCutsALongTextAt513Bytes) {
    TSMTPFunc smtp;
    const std::string recipient(600, 'r');
    const AnsiString text = smtp.Report(2, "Recipient Not Found: %s", recipient.c_str());
    EXPECT_EQ(text.Length(), 513);
    EXPECT_EQ(std::string(smtp.Message).size(), 513u);
}

// Every text the status control showed during a send to a refused recipient.
std::vector<std::string> ShownDuringRefusedSend(SMTPFuncTest& test, std::uint16_t word) {
    TSMTPFunc smtp(&word);
    TPanel status(nullptr, "status");
    std::vector<std::string> shown;
    status.Subscribe(
        [&shown](TControl& control, TChange) { shown.push_back(control.Caption().str()); });
    smtp.StatusControl = &status;
    EXPECT_FALSE(
        test.Send(smtp, SmtpConfig(PlainServer().Host()), "From: a\n\nb\n", "refused@x.org"));
    return shown;
}

TEST_F(SMTPFuncTest, LevelWordOfOneShowsFailuresButNotProgress) {
    EXPECT_EQ(ShownDuringRefusedSend(*this, 1), (std::vector<std::string>{"SMTP Failure"}));
}

TEST_F(SMTPFuncTest, EventsReachTheStatusInTheOrderTheyHappened) {
    const std::vector<std::string> shown = ShownDuringRefusedSend(*this, 4);
    const auto at = [&shown](const std::string& text) {
        return std::find(shown.begin(), shown.end(), text) - shown.begin();
    };
    EXPECT_LT(at("Host Resolved"), at("Connected"));
    EXPECT_LT(at("Connected"), at("SendStart"));
    EXPECT_LT(at("SendStart"), at("Recipient Not Found: refused@x.org"));
    EXPECT_LT(at("Recipient Not Found: refused@x.org"), at("SMTP Failure"));
    EXPECT_LT(at("SMTP Failure"), at("Disconnect"));
    EXPECT_EQ(shown.back(), "Disconnect");
}

} // namespace
