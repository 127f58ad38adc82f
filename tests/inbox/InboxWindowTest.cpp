#include <filesystem>
#include <gtest/gtest.h>

#include "inbox/InboxForm.h"
#include "platform/ScriptedDialogs.h"
#include "settings/Globals.h"
#include "support/EnvOverride.h"
#include "support/GlobalScope.h"
#include "support/TempFolder.h"

namespace {

std::string Message(const std::string& from, const std::string& date) {
    return "From: " + from + "\r\nSubject: s\r\nDate: " + date + "\r\n\r\nbody\r\n";
}

// A suite on disk: the program's folder with its hand-off file, a data folder
// with Config.cfg and IconMailbox.ini, and mailboxes. The menus, deletions and Run Mail are driven
// end to end by the session scripts (tests/scripts); these are the cases a script cannot reach.
class InboxWindow : public ::testing::Test {
protected:
    TTempFolder folder;
    TEnvOverride env;
    TGlobalScope scope{AnsiString(folder / "bin/vellumdesk")};
    TScriptedDialogs dialogs;
    std::string data = folder / "data/Quillpost Users";
    std::unique_ptr<TInboxFrm> inbox;

    void SetUp() override {
        env.Set("XDG_DATA_HOME", (folder / "data").c_str());
        Dialogs = &dialogs;
        Application->HelpFile = "Help/QUILLPOST.HLP";
        folder.Write("bin/vellumdesk.ini", folder / "mail/Inbox" + "\r\nAnn Sender\r\n");
        folder.Write("mail/Inbox/1.eml", Message("ann", "Mon, 5 Jan 2003 10:00:00 +0000"));
        folder.Write("mail/Inbox/2.eml", Message("bob", "Tue, 4 Feb 2003 10:00:00 +0000"));
        folder.Write("mail/Inbox/3.eml", Message("cy", "Tue, 4 Mar 2003 10:00:00 +0000"));
        WriteConfig("Recorder");
        folder.Write("data/Quillpost Users/IconMailbox.ini", "Work\r\n");
    }
    void TearDown() override {
        inbox.reset();
        Dialogs = nullptr;
    }
    void WriteConfig(const std::string& client) {
        std::string record(1024, '\0');
        record.replace(395, client.size(), client);
        const std::string shared = folder / "shared";
        record.replace(462, shared.size(), shared);
        folder.Write("data/Quillpost Users/Config.cfg", record);
    }
    void Start() {
        inbox = std::make_unique<TInboxFrm>();
        inbox->FormActivate();
    }
    std::vector<std::string> Senders() {
        std::vector<std::string> out;
        for (int i = 0; i < inbox->lvEmailList.Count(); ++i)
            out.push_back(inbox->lvEmailList.Item(i).Caption.str());
        return out;
    }
    std::string Status() { return inbox->LMDpfStatusBar.Caption().str(); }
};

TEST_F(InboxWindow, ActivationOpensTheHandOffMailboxNewestFirst) {
    Start();
    EXPECT_EQ(inbox->Caption(), "Saved Messages For: Inbox");
    EXPECT_EQ(inbox->SenderLine, "Ann Sender");
    EXPECT_EQ(Senders(), (std::vector<std::string>{"cy", "bob", "ann"}));
    EXPECT_EQ(Status(), "3 Messages");
    EXPECT_TRUE(inbox->LMDpfSend.Enabled());
    EXPECT_EQ(inbox->LMDpfRunMail.Caption(), "Recorder");
    EXPECT_EQ(inbox->LMDpfHtml.Width(), 0);
    EXPECT_EQ(inbox->LMDpfDate.Caption().SubString(1, 6), "Today ");
    EXPECT_EQ(inbox->LMDpfRefresh.Cursor(), crHandPoint);
}

TEST_F(InboxWindow, RunMailWidthsFollowTheClientName) {
    for (const auto& [client, button, window] :
         std::initializer_list<std::tuple<const char*, int, int>>{{"Eightchr", 85, 585},
                                                                  {"Ninechars", 93, 593}}) {
        WriteConfig(client);
        Start();
        EXPECT_EQ(inbox->LMDpfRunMail.Width(), button) << client;
        EXPECT_EQ(inbox->Width(), window) << client;
    }
}

TEST_F(InboxWindow, WithoutConfigForwardStaysOffAndWithoutHandOffTheFirstMailboxLineNames) {
    std::filesystem::remove(data + "/Config.cfg");
    std::filesystem::remove(folder / "bin/vellumdesk.ini");
    Start();
    EXPECT_FALSE(inbox->LMDpfSend.Enabled());
    EXPECT_EQ(inbox->MailboxName, "Work");
    EXPECT_EQ(inbox->MailboxFolder, "");
}

TEST_F(InboxWindow, ABusyWindowRefusesRefreshDuringAScan) {
    Start();
    bool refreshRan = false;
    std::filesystem::remove(folder / "mail/Inbox/1.eml");
    // The outer press runs the loop once before the scan; the click posted
    // there arrives at the scan's first yield.
    scope.App().Post([&] {
        scope.App().Post([&] {
            const int before = scope.App().ProcessMessagesCalls();
            inbox->LMDpfRefreshClick();
            refreshRan = scope.App().ProcessMessagesCalls() != before;
        });
    });
    inbox->LMDpfRefreshClick();
    EXPECT_FALSE(refreshRan) << "the refresh inside the scan was refused at once";
    EXPECT_EQ(Status(), "2 Messages");
}

TEST_F(InboxWindow, CloseEndsTheLoop) {
    Start();
    bool closed = false;
    inbox->OnClose = [&] { closed = true; };
    inbox->LMDpfCloseClick();
    EXPECT_TRUE(closed);
    EXPECT_FALSE(inbox->Visible());
}

} // namespace
