#pragma once
// What the forwarding tests share: the program's objects, the libcurl
// component, and the servers on 127.0.0.1, started once for the whole run.

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "SmtpTestServer.h"
#include "foundation/StringList.h"
#include "settings/ConfigRecord.h"
#include "support/GlobalScope.h"
#include "support/TempFolder.h"

// The recording server with AUTH for "sam"/"secret", and one with STARTTLS
// whose certificate CaFile() holds.
TSmtpTestServer& PlainServer();
TSmtpTestServer& TlsServer();
const std::string& CaFile();

constexpr const char* serverUser = "sam";
constexpr const char* serverPassword = "secret";

// A settings record with the four texts of the SMTP block.
ConfigRecord SmtpConfig(const std::string& host, const std::string& user = "",
                        const std::string& password = "", const std::string& sender = "");

// Lines in CR LF form, as they go out.
std::string CrLf(const std::string& lfText);
// The text of DATA without the resent block the component puts in front.
std::string WithoutOwnHeaders(const std::string& data);
// The value of the first header field name in text, or "".
std::string FieldOf(const std::string& text, const std::string& name);

class TForwardingTest : public ::testing::Test {
protected:
    TForwardingTest();
    ~TForwardingTest() override;
    TGlobalScope scope;
    TTempFolder temp;
};
