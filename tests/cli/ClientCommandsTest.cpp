#include <chrono>
#include <gtest/gtest.h>
#include <thread>

#include "support/ChildProcess.h"
#include "support/GlobalScope.h"
#include "support/TempFolder.h"
#include "support/XdgFixture.h"

namespace {

class ClientCommands : public ::testing::Test {
protected:
    TTempFolder folder;
    std::string record = folder / "argv.txt";
    TXdgFixture desktop{folder.Path(), record};
};

TEST_F(ClientCommands, ClientsPrintsDisplayNameAndId) {
    ASSERT_TRUE(desktop.Ready());
    const TChildResult r = RunChild({BuiltProgram("vellumdesk-cli"), "clients"});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_NE(r.out.find("Quill Reader=quill-reader.desktop\n"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("Lark Mail=lark-mail.desktop\n"), std::string::npos) << r.out;
}

TEST_F(ClientCommands, OpenStartsTheNamedClientAndReturns) {
    ASSERT_TRUE(desktop.Ready());
    const std::string message = folder.Write("box/x; rm -rf y.eml", "From: x\r\n");
    const TChildResult r =
        RunChild({BuiltProgram("vellumdesk-cli"), "open", message, "--client", "&Quill Reader"});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(AwaitFile(record), HelperProgram("argv_recorder") + "\n" + message + "\n");
}

TEST_F(ClientCommands, OpenWithoutAClientUsesTheOneOfConfig) {
    ASSERT_TRUE(desktop.Ready());
    std::string config(1024, '\0');
    config.replace(395, 12, "Quill Reader");
    folder.Write("home/Quillpost Users/Config.cfg", config);
    const std::string message = folder.Write("box/m.eml", "From: x\r\n");
    EXPECT_EQ(RunChild({BuiltProgram("vellumdesk-cli"), "open", message}).exitCode, 0);
    EXPECT_EQ(AwaitFile(record), HelperProgram("argv_recorder") + "\n" + message + "\n");
}

} // namespace
