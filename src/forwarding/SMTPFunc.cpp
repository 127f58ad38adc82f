#include "forwarding/SMTPFunc.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "controls/Control.h"
#include "foundation/Utils.h"
#include "settings/ConfigRecord.h"

TSMTPFunc* SMTPFunc = nullptr;

namespace {

// A text of the block ends at its first NUL or at the end of its field.
AnsiString BlockText(const unsigned char* block, std::size_t offset, std::size_t width) {
    const char* start = reinterpret_cast<const char*>(block) + offset;
    return AnsiString(start, ::strnlen(start, width));
}

constexpr std::size_t text2 = ConfigRecord::smtpText2 - ConfigRecord::smtpBlock;
constexpr std::size_t text3 = ConfigRecord::smtpText3 - ConfigRecord::smtpBlock;
constexpr std::size_t text4 = ConfigRecord::smtpText4 - ConfigRecord::smtpBlock;

} // namespace

TSMTPFunc::TSMTPFunc(std::uint16_t* levelWord) {
    Level = levelWord ? levelWord : &OwnLevel;
    Smtp = NewSmtpClient();
    Post = &Smtp->PostMessage;
    Smtp->StartTls = 1;
    Smtp->RequireTls = 0;
    Smtp->Port = Port;
    Smtp->Charset = "us-ascii";
    AssignEvents();
}

TSMTPFunc::~TSMTPFunc() {
    Smtp.reset();
    HeaderLines.Clear();
}

AnsiString TSMTPFunc::Report(std::uint16_t level, const char* format, ...) {
    try {
        va_list args;
        va_start(args, format);
        // vsnprintf cuts what does not fit and always ends the text.
        std::vsnprintf(Message, sizeof Message, format, args);
        va_end(args);
        if (*Level >= level) {
            if (StatusControl) StatusControl->SetCaption(Message);
            if (Utils) Utils->WriteLog("%s", Message);
        }
        return AnsiString(Message);
    } catch (...) {
        return AnsiString();
    }
}

void TSMTPFunc::AssignEvents() {
    AssignFailureEvents();
    AssignProgressEvents();
    Smtp->OnSendStart = [this] {
        Report(4, "SendStart");
        for (const AnsiString& line : HeaderLines)
            Smtp->ExtraHeaders.Add(line);
    };
    Smtp->OnSuccess = [this] {
        Report(4, "Success");
        LastResult = 0;
    };
}

// The events that set a result code.
void TSMTPFunc::AssignFailureEvents() {
    Smtp->OnAttachmentNotFound = [this](const AnsiString& file) {
        Report(1, "AttachmentNotFound: %s", file.c_str());
        LastResult = 1;
    };
    Smtp->OnInvalidHost = [this](bool& handled) {
        Report(1, "Invalid Host");
        handled = true;
        LastResult = 2;
    };
    Smtp->OnHeaderIncomplete = [this](bool& handled, int part) {
        Report(1, "Header Incomplete: %d", part);
        handled = true;
        LastResult = 3;
    };
    Smtp->OnConnectionFailed = [this] {
        Report(1, "Connection Failed");
        LastResult = 4;
    };
    Smtp->OnAuthenticationFailed = [this](bool& handled) {
        Report(1, "Authentication Failed");
        handled = true;
        LastResult = 5;
    };
    Smtp->OnFailure = [this] {
        Report(1, "SMTP Failure");
        LastResult = 6;
    };
    // A refused recipient alone does not fail the send: what follows decides.
    Smtp->OnRecipientNotFound = [this](const AnsiString& recipient) {
        Report(2, "Recipient Not Found: %s", recipient.c_str());
    };
}

// The events that only report.
void TSMTPFunc::AssignProgressEvents() {
    Smtp->OnAttachmentStartEncode = [this](const AnsiString& a, const AnsiString& b,
                                           const AnsiString& c) {
        Report(4, "Attachment Start Encode: %s %s %s", a.c_str(), b.c_str(), c.c_str());
    };
    Smtp->OnConnect = [this] { Report(4, "Connected"); };
    Smtp->OnConnectionRequired = [this] { Report(4, "Connection Required"); };
    Smtp->OnDisconnect = [this] { Report(4, "Disconnect"); };
    Smtp->OnEncodeEnd = [this](const AnsiString& file) {
        Report(4, "Encode End: %s", file.c_str());
    };
    Smtp->OnEncodeStart = [this](const AnsiString& file) {
        Report(4, "Encode Start: %s", file.c_str());
    };
    Smtp->OnHostResolved = [this] { Report(4, "Host Resolved"); };
    Smtp->OnMailListReturn = [this](const AnsiString&) { Report(4, "Mail List Return"); };
    Smtp->OnModifyAttachmentHeader = [this] { Report(4, "Modify Attachment Header"); };
    Smtp->OnPacketSent = [this] { Report(4, "Packet Sent"); };
    Smtp->OnStatus = [this](const AnsiString& status) { Report(3, "Statue: %s", status.c_str()); };
}

bool TSMTPFunc::SendPost(const unsigned char* block, const TStringList& note) {
    if (Smtp->Connected) {
        Smtp->Disconnect();
        if (!Utils || !Utils->WaitForFlag(&Smtp->Connected, 0, 1000)) return false;
    }
    Smtp->Host = BlockText(block, 0, ConfigRecord::smtpHostWidth);
    Smtp->UserID = BlockText(block, text2, ConfigRecord::smtpText2Width);
    Smtp->Password = BlockText(block, text3, ConfigRecord::smtpText3Width);
    Smtp->MailSender = BlockText(block, text4, ConfigRecord::smtpText4Width);
    Smtp->RequireAuth = 0;
    Smtp->Connect();
    if (!Smtp->Connected) return false;
    SplitHead();
    for (int i = 0; i < note.Count(); ++i)
        Post->Body.Insert(i, note[i]);
    Smtp->SendMail();
    Smtp->Disconnect();
    return LastResult == 0;
}

// The head ends at the first blank line, or at the second when any line of
// it names a "boundary": a multipart message then keeps its preamble, or its
// first boundary and part header, in the head.
void TSMTPFunc::SplitHead() {
    HeaderLines.Clear();
    int blanks = 0, limit = 1;
    TStringList& body = Post->Body;
    for (const AnsiString& line : body) {
        if (line.LowerCase().Pos("boundary") > 0) limit = 2;
        if (line.IsEmpty()) ++blanks;
        if (blanks == limit) break;
        HeaderLines.Add(line);
    }
    for (int i = 0; i < HeaderLines.Count(); ++i)
        body.Delete(0);
}
