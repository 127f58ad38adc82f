#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <vector>

#include "foundation/FileDescriptor.h"

#include "controls/PopupMenu.h"
#include "settings/Globals.h"
#include "support/EnvOverride.h"
#include "support/GlobalScope.h"
#include "support/TempFolder.h"

namespace {

// A record with a text at every field the program reads.
std::string MakeRecord(std::size_t size) {
    std::string bytes(std::max<std::size_t>(size, 1100), 'z');
    auto put = [&](std::size_t offset, std::size_t width, std::string_view text) {
        std::fill_n(bytes.begin() + std::ptrdiff_t(offset), width, '\0');
        bytes.replace(offset, text.size(), text);
    };
    put(140, 32, "smtp.example.org");
    put(172, 16, "second");
    put(188, 32, "third");
    put(220, 175, "fourth");
    put(395, 57, "Mail Client");
    bytes[452] = 1;
    put(462, 562, "/srv/quillpost/shared");
    bytes.resize(size);
    return bytes;
}

class GlobalsFixture : public ::testing::Test {
protected:
    TTempFolder folder;
    TEnvOverride env;
    TGlobalScope scope{AnsiString(folder / "opt/bin/vellumdesk")};
    TGlobals globals;
    void SetUp() override {
        env.Set("XDG_DATA_HOME", (folder / "data").c_str());
        Application->HelpFile = "Help/QUILLPOST.HLP";
        globals.InitFolders();
    }
    void WriteConfig(const std::string& bytes) {
        folder.Write("data/Quillpost Users/Config.cfg", bytes);
    }
};

TEST_F(GlobalsFixture, DataFolderLiesInTheDataHome) {
    EXPECT_EQ(globals.DataFolder, AnsiString(folder / "data/Quillpost Users"));
}

TEST_F(GlobalsFixture, LoadConfigReadsTheFieldsAtTheirOffsets) {
    struct Case {
        std::size_t size;
        const char* shared;
        const char* client;
    };
    for (const Case& c :
         {Case{1024, "/srv/quillpost/shared", "Mail Client"},
          Case{1500, "/srv/quillpost/shared", "Mail Client"},
          Case{500, "/srv/quillpost/shared", "Mail Client"}, Case{400, "", "Mail "}}) {
        TGlobals fresh;
        fresh.DataFolder = globals.DataFolder;
        WriteConfig(MakeRecord(c.size));
        ASSERT_TRUE(fresh.LoadConfig()) << c.size;
        EXPECT_EQ(fresh.Config.SharedFolder().view().substr(0, 21), std::string_view(c.shared))
            << c.size;
        EXPECT_EQ(fresh.Config.MailClient(), c.client) << c.size;
        EXPECT_EQ(fresh.RejectedFolder,
                  AnsiString(c.shared) + (*c.shared ? "/" : "") + "Rejected Mail");
        if (c.size >= 1024) {
            EXPECT_EQ(fresh.Config.SmtpHost(), "smtp.example.org");
            EXPECT_EQ(fresh.Config.SmtpText2(), "second");
            EXPECT_EQ(fresh.Config.SmtpText3(), "third");
            EXPECT_EQ(fresh.Config.SmtpText4(), "fourth");
            EXPECT_TRUE(fresh.Config.StayOnTop());
        }
    }
}

TEST_F(GlobalsFixture, ASharedFolderWithoutNulEndsAtTheRecord) {
    WriteConfig(std::string(1024, 'q'));
    ASSERT_TRUE(globals.LoadConfig());
    EXPECT_EQ(globals.Config.SharedFolder().Length(), 562);
}

TEST_F(GlobalsFixture, MissingOrEmptyConfig) {
    EXPECT_FALSE(globals.LoadConfig());
    EXPECT_EQ(globals.RejectedFolder, "");
    WriteConfig("");
    EXPECT_TRUE(globals.LoadConfig()) << "an empty file counts as read";
    EXPECT_EQ(globals.Config.MailClient(), "");
    EXPECT_EQ(globals.RejectedFolder, "Rejected Mail");
}

// Whatever stands in the way of a read leaves the record of the last load.
TEST_F(GlobalsFixture, AnUnreadableConfigKeepsWhatTheLastLoadGave) {
    const std::string path = folder / "data/Quillpost Users/Config.cfg";
    const std::vector<std::pair<const char*, std::function<TFileDescriptor()>>> obstacles = {
        {"missing", [] { return TFileDescriptor(); }},
        {"a folder",
         [&] {
             std::filesystem::create_directory(path);
             return TFileDescriptor();
         }},
        {"a pipe with no writer",
         [&] {
             ::mkfifo(path.c_str(), 0600);
             return TFileDescriptor();
         }},
        {"locked by a writer",
         [&] {
             WriteConfig(std::string(1024, 'w'));
             TFileDescriptor writer(::open(path.c_str(), O_RDWR | O_CLOEXEC));
             ::flock(writer.Get(), LOCK_EX);
             return writer;
         }},
    };
    for (const auto& [what, makeObstacle] : obstacles) {
        WriteConfig(MakeRecord(1024));
        ASSERT_TRUE(globals.LoadConfig());
        std::filesystem::remove(path);
        const TFileDescriptor held = makeObstacle();
        EXPECT_FALSE(globals.LoadConfig()) << what;
        EXPECT_EQ(globals.Config.MailClient(), "Mail Client") << what;
        EXPECT_EQ(globals.RejectedFolder, "/srv/quillpost/shared/Rejected Mail") << what;
        std::filesystem::remove_all(path);
    }
}

// The program lies in app/bin; which help files exist decides the one it takes.
TEST(GlobalsHelp, HelpFileBesideTheProgramItsFolderOrUnderThePrefix) {
    const struct {
        std::vector<const char*> present;
        const char* expected;
    } cases[] = {
        {{}, "app/Help/QUILLPOST.HLP"},
        {{"app/bin/Help/QUILLPOST.HLP"}, "app/bin/Help/QUILLPOST.HLP"},
        {{"app/Help/QUILLPOST.HLP"}, "app/Help/QUILLPOST.HLP"},
        {{"app/share/vellumdesk/Help/QUILLPOST.HLP"}, "app/share/vellumdesk/Help/QUILLPOST.HLP"},
        {{"app/Help/QUILLPOST.HLP", "app/share/vellumdesk/Help/QUILLPOST.HLP"},
         "app/Help/QUILLPOST.HLP"},
        {{"app/bin/Help/QUILLPOST.HLP", "app/share/vellumdesk/Help/QUILLPOST.HLP"},
         "app/bin/Help/QUILLPOST.HLP"},
    };
    for (const auto& c : cases) {
        TTempFolder folder;
        for (const char* name : c.present)
            folder.Write(name, "9=x\r\n");
        TGlobalScope scope{AnsiString(folder / "app/bin/vellumdesk")};
        Application->HelpFile = "Help/QUILLPOST.HLP";
        TGlobals globals;
        globals.InitFolders();
        EXPECT_EQ(Application->HelpFile, AnsiString(folder / c.expected)) << c.expected;
    }
}

TEST(GlobalsMenus, FillMenuAddsOnlyNewCaptions) {
    TGlobalScope scope;
    TGlobals globals;
    TStringList list;
    for (const char* line : {"a=1", "", "b", "a=2"})
        list.Add(line);
    TMenuItem item;
    int clicks = 0;
    globals.MenuClick = [&](TMenuItem&) { ++clicks; };
    EXPECT_EQ(globals.FillMenu(item, list), 2);
    EXPECT_EQ(item.Items(0).Caption, "a");
    EXPECT_EQ(item.Items(1).Caption, "b");
    TStringList again;
    again.Add("&A=x");
    again.Add("B");
    EXPECT_EQ(globals.FillMenu(item, again), 2);
    item.Items(1).Click();
    EXPECT_EQ(clicks, 1);
}

// A mailbox list of 100,000 lines fills the menu in well under the time a
// walk of the menu per line would take (minutes): the guard is generous.
TEST(GlobalsMenus, AHugeListFillsTheMenuWithoutAWalkPerLine) {
    TGlobalScope scope;
    TGlobals globals;
    TStringList list;
    for (int i = 0; i < 100000; ++i)
        list.Add(AnsiString("Box" + std::to_string(i) + "=/mail/" + std::to_string(i)));
    TMenuItem item;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(globals.FillMenu(item, list), 100000);
    EXPECT_EQ(globals.FillMenu(item, list), 100000);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST(GlobalsLines, FindLineValue) {
    TGlobalScope scope;
    TGlobals globals;
    TStringList lines;
    for (const char* line : {"X-Old-From: old", "From: new", "Subject: Re: a"})
        lines.Add(line);
    EXPECT_EQ(globals.FindLineValue("Subject:", lines), "Re: a");
    EXPECT_EQ(globals.FindLineValue("FROM:", lines), "old") << "a longer name counts";
    EXPECT_EQ(globals.FindLineValue("To:", lines), " ");
    EXPECT_EQ(globals.FindLineValue("To:", TStringList()), " ");
    lines.Clear();
    lines.Add("Subject: " + std::string(600, 's'));
    EXPECT_EQ(globals.FindLineValue("Subject:", lines).Length(), 511);
    scope.App().Terminate();
    EXPECT_EQ(globals.FindLineValue("Subject:", lines), " ") << "a terminating program stops";
}

} // namespace
