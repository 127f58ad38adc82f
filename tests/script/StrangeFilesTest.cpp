// Whatever stands in the place of a file the start reads (a pipe with no
// writer, an endless device), a real session starts at once, lists what it can
// and ends normally: nothing waits, nothing reads without end.

#include <functional>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "support/ChildProcess.h"
#include "support/EnvOverride.h"
#include "support/TempFolder.h"

namespace {

TEST(StrangeFiles, ASessionNeverWaitsOnAPipeOrAnEndlessFileInAFilesPlace) {
    struct TCase {
        const char* what;
        const char* path; // inside the test folder
        bool endless;     // /dev/zero instead of a pipe
        const char* status;
    } cases[] = {
        {"mailbox list", "data/Quillpost Users/IconMailbox.ini", false, "1 Messages"},
        {"endless mailbox list", "data/Quillpost Users/IconMailbox.ini", true, "1 Messages"},
        // No mailbox folder: the data folder is listed, which holds no message.
        {"hand-off file", "program/vellumdesk.ini", false, "0 Messages"},
        {"endless hand-off file", "program/vellumdesk.ini", true, "0 Messages"},
        {"settings", "data/Quillpost Users/Config.cfg", false, "1 Messages"},
        {"message", "data/Quillpost Users/Inbox/pipe.eml", false, "1 Messages"},
        {"endless message", "data/Quillpost Users/Inbox/zero.eml", true, "1 Messages"},
    };
    for (const TCase& c : cases) {
        TTempFolder folder;
        TEnvOverride env;
        env.Set("XDG_DATA_HOME", (folder / "data").c_str());
        const std::string inbox = folder.MakeFolder("data/Quillpost Users/Inbox");
        folder.Write("data/Quillpost Users/Inbox/ok.eml", "From: fine\r\n");
        folder.MakeFolder("program");
        // Without a readable hand-off the session opens the Inbox by its line.
        if (std::string(c.path).find("IconMailbox") == std::string::npos)
            folder.Write("data/Quillpost Users/IconMailbox.ini", "Inbox\r\n");
        if (std::string(c.path).find("vellumdesk.ini") == std::string::npos)
            folder.Write("program/vellumdesk.ini", inbox + "\r\nsam\r\n");
        const std::string path = folder / c.path;
        ASSERT_EQ(c.endless ? ::symlink("/dev/zero", path.c_str()) : ::mkfifo(path.c_str(), 0600),
                  0)
            << c.what;
        const TChildResult r = RunChild({"/usr/bin/timeout", "20", BuiltProgram("vellumdesk-cli"),
                                         "script", "--program", folder / "program/vellumdesk", "-"},
                                        "start\nshow InboxFrm.LMDpfStatusBar\n");
        EXPECT_EQ(r.exitCode, 0) << c.what << ": " << r.err;
        EXPECT_NE(r.out.find(std::string("Caption=") + c.status + "\n"), std::string::npos)
            << c.what << ": " << r.out;
    }
}

} // namespace
