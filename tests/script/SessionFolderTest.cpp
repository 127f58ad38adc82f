// A session's empty mailbox path means the data folder, never the folder the
// shell started the program from: with no hand-off, with an entry "Empty=" and
// with the Rejected Mail view of a suite that has no Config.cfg, the window
// lists (and Delete removes) only the data folder's messages.

#include <filesystem>
#include <gtest/gtest.h>

#include "support/ChildProcess.h"
#include "support/EnvOverride.h"
#include "support/TempFolder.h"

namespace {

TEST(SessionFolder, AnEmptyMailboxPathIsTheDataFolderNotTheShellsFolder) {
    const std::string deleteAll = "show InboxFrm.lvEmailList\nanswer All\nanswer OK\n"
                                  "click InboxFrm.LMDpfSubDelete\n";
    struct TCase {
        const char* what;
        std::string mailboxes, script;
    } cases[] = {
        {"no hand-off", "", "start\n" + deleteAll},
        {"an entry without a folder", "Empty=\r\n",
         "handoff \"@BOX@\"\nstart\nanswer Empty\nclick InboxFrm.LMDpfSubMailboxes\n" + deleteAll},
        {"Rejected Mail without Config.cfg", "",
         "handoff \"@BOX@\"\nstart\nanswer Rejected\nclick InboxFrm.LMDpfSubMailboxes\n" +
             deleteAll},
    };
    const std::filesystem::path before = std::filesystem::current_path();
    for (const TCase& c : cases) {
        TTempFolder folder;
        TEnvOverride env;
        env.Set("XDG_DATA_HOME", (folder / "data").c_str());
        const std::string decoy = folder.Write("shell/decoy.eml", "From: decoy\r\n");
        const std::string inside = folder.Write("data/Quillpost Users/inside.eml", "From: in\r\n");
        if (!c.mailboxes.empty()) folder.Write("data/Quillpost Users/IconMailbox.ini", c.mailboxes);
        std::string script = c.script;
        if (const auto at = script.find("@BOX@"); at != std::string::npos)
            script.replace(at, 5, folder.MakeFolder("box"));
        // A copy of the program, so that no hand-off file beside the built one
        // (the demo writes one there) stands in for "no hand-off".
        const std::string program = folder / "bin/vellumdesk-cli";
        std::filesystem::create_directories(folder / "bin");
        std::filesystem::copy_file(BuiltProgram("vellumdesk-cli"), program);
        std::filesystem::current_path(folder / "shell");
        const TChildResult r = RunChild({program, "script", "-"}, script);
        std::filesystem::current_path(before);
        EXPECT_EQ(r.exitCode, 0) << c.what << ": " << r.err;
        EXPECT_NE(r.out.find("inside.eml"), std::string::npos) << c.what << ": " << r.out;
        EXPECT_EQ(r.out.find("decoy"), std::string::npos) << c.what;
        EXPECT_TRUE(PathExists(decoy)) << c.what;
        EXPECT_FALSE(PathExists(inside)) << c.what;
    }
}

} // namespace
