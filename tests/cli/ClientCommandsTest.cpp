#include <chrono>
#include <gtest/gtest.h>
#include <sys/stat.h>
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

// A message is only ever an argument of the chosen client, whatever its path
// length and mode bits; anything that is not a plain file, or an unknown
// client, is an error, and nothing is started by name.
TEST_F(ClientCommands, OpenHandsOnlyAPlainFileToAKnownClient) {
    ASSERT_TRUE(desktop.Ready());
    const std::string ran = folder / "ran";
    const std::string longPath =
        folder.Write(std::string(120, 'a') + "/" + std::string(120, 'b') + "/run.eml",
                     "#!/bin/sh\ntouch '" + ran + "'\n");
    ASSERT_GT(longPath.size(), 255u);
    ::chmod(longPath.c_str(), 0755);
    const TChildResult started =
        RunChild({BuiltProgram("vellumdesk-cli"), "open", longPath, "--client", "Quill Reader"});
    EXPECT_EQ(started.exitCode, 0) << started.err;
    EXPECT_EQ(AwaitFile(record), HelperProgram("argv_recorder") + "\n" + longPath + "\n");
    ::unlink(record.c_str());

    ::mkfifo((folder / "pipe.eml").c_str(), 0600);
    struct TCase {
        std::vector<std::string> args;
        std::string err;
    } cases[] = {
        {{"sh", "--client", "Quill Reader"}, "open: sh: no such file\n"},
        {{folder / "none.eml"}, "open: " + (folder / "none.eml") + ": no such file\n"},
        {{folder.Path()}, "open: " + folder.Path() + ": not a plain file\n"},
        {{folder / "pipe.eml"}, "open: " + (folder / "pipe.eml") + ": not a plain file\n"},
        {{longPath, "--client", "No Such\x1b"}, "open: no mail client named 'No Such\\x1B'\n"},
    };
    for (const TCase& c : cases) {
        std::vector<std::string> argv{BuiltProgram("vellumdesk-cli"), "open"};
        argv.insert(argv.end(), c.args.begin(), c.args.end());
        const TChildResult r = RunChild(argv);
        EXPECT_EQ(r.exitCode, 1) << c.args[0];
        EXPECT_EQ(r.err, c.err) << c.args[0];
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    EXPECT_FALSE(PathExists(ran)) << "the message ran";
    EXPECT_FALSE(PathExists(record)) << "a client started";
}

} // namespace
