#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <thread>

#include "settings/Globals.h"
#include "support/EnvOverride.h"
#include "support/GlobalScope.h"
#include "support/NextRegistry.h"
#include "support/TempFolder.h"

namespace {

const AnsiString base = "Software\\Clients\\Mail";

// Mail clients are copies of the argument recorder under the names a
// registry command would give them.
class OpenInMailClient : public ::testing::Test {
protected:
    TTempFolder folder;
    TEnvOverride env;
    TGlobalScope scope;
    TNextRegistry next;
    std::string record = folder / "argv.txt";
    std::string message = folder.Write("box/it's \"$(touch pwned)\" a b.eml", "From: x\r\n");
    std::unique_ptr<TGlobals> globals;

    void SetUp() override {
        env.Set("ARGV_RECORD_FILE", record.c_str());
        next.Tree().SetString(base, "", "Mail");
    }

    std::string Program(const std::string& name) {
        const std::string path = folder / name;
        std::filesystem::create_directories(std::filesystem::path(path).parent_path());
        std::filesystem::copy_file(HelperProgram("argv_recorder"), path);
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
        return path;
    }
    void Client(const char* key, const char* name, const std::string& command) {
        next.Tree().SetString(base + "\\" + key, "", name);
        next.Tree().SetString(base + "\\" + key + "\\shell\\open\\command", "", command);
    }
    void Open(const char* client, const std::string& file) {
        if (!globals) globals = std::make_unique<TGlobals>(); // reads the registry once
        globals->OpenInMailClient(client, file);
    }
};

TEST_F(OpenInMailClient, TheOldExpressClientGetsTheEmlSwitch) {
    const std::string program = Program("Outlook Express/msimn.exe");
    Client("Mail", "Mail Client", "\"" + program + "\" /outnews");
    Open("&Mail Client", message);
    EXPECT_EQ(AwaitFile(record), program + "\n/eml:" + message + "\n");
}

TEST_F(OpenInMailClient, ArgumentsOfTheCommandAreDroppedAndTheMarkerGoes) {
    const std::string program = Program("Mailer/mailer.exe");
    Client("Mail", "Mail Client", "%windir%" + program + " /m");
    Open("Mail Client", message);
    EXPECT_EQ(AwaitFile(record), program + "\n" + message + "\n");
    EXPECT_FALSE(PathExists("pwned"));
}

TEST_F(OpenInMailClient, ACommandWithoutExeIsAllProgram) {
    const std::string program = Program("MAIL");
    Client("Mail", "Mail Client", "\"" + program + "\"");
    Open("Mail Client", message);
    EXPECT_EQ(AwaitFile(record), program + "\n" + message + "\n");
}

TEST_F(OpenInMailClient, UnknownNamesAndMissingCommandsDoNothing) {
    const std::string program = Program("mail.exe");
    Client("Mail", "Mail Client", program);
    next.Tree().SetString(base + "\\Bare", "", "Bare Client");
    Open("Mail &&Client", message);
    Open("Bare Client", message);
    Open("Mail Client", folder / "box/missing.eml");
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    EXPECT_FALSE(PathExists(record));
}

} // namespace
