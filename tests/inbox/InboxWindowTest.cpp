#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <thread>

#include "inbox/InboxForm.h"
#include "platform/ScriptedDialogs.h"
#include "settings/Globals.h"
#include "support/EnvOverride.h"
#include "support/GlobalScope.h"
#include "support/NextRegistry.h"
#include "support/TempFolder.h"

namespace {

std::string Message(const std::string& from, const std::string& date) {
    return "From: " + from + "\r\nSubject: s\r\nDate: " + date + "\r\n\r\nbody\r\n";
}

// A suite on disk: the program's folder with its hand-off file, a data folder
// with Config.cfg and IconMailbox.ini, mailboxes, and a mail client that
// records how it was started.
class InboxWindow : public ::testing::Test {
protected:
    TTempFolder folder;
    TEnvOverride env;
    TGlobalScope scope{AnsiString(folder / "bin/vellumdesk")};
    TScriptedDialogs dialogs;
    TNextRegistry next;
    std::string data = folder / "data/Quillpost Users";
    std::string record = folder / "argv.txt";
    std::unique_ptr<TInboxFrm> inbox;

    void SetUp() override {
        env.Set("XDG_DATA_HOME", (folder / "data").c_str());
        env.Set("ARGV_RECORD_FILE", record.c_str());
        Dialogs = &dialogs;
        Application->HelpFile = "Help/QUILLPOST.HLP";
        folder.Write("bin/vellumdesk.ini", folder / "mail/Inbox" + "\r\nAnn Sender\r\n");
        folder.Write("mail/Inbox/1.eml", Message("ann", "Mon, 5 Jan 2003 10:00:00 +0000"));
        folder.Write("mail/Inbox/2.eml", Message("bob", "Tue, 4 Feb 2003 10:00:00 +0000"));
        folder.Write("mail/Inbox/3.eml", Message("cy", "Tue, 4 Mar 2003 10:00:00 +0000"));
        folder.Write("data/Quillpost Users/Work/w.eml", Message("work", "d"));
        folder.Write("shared/Rejected Mail/r.eml", Message("spam", "d"));
        WriteConfig("Recorder");
        folder.Write("data/Quillpost Users/IconMailbox.ini",
                     "Work\r\nOther=" + folder / "mail/Other" + "\r\nOTHER=/elsewhere\r\n");
        const std::string client = folder / "clients/recorder";
        std::filesystem::create_directories(folder / "clients");
        std::filesystem::copy_file(HelperProgram("argv_recorder"), client);
        const AnsiString base = "Software\\Clients\\Mail";
        next.Tree().SetString(base, "", "rec");
        next.Tree().SetString(base + "\\rec", "", "Recorder");
        next.Tree().SetString(base + "\\rec\\shell\\open\\command", "", "\"" + client + "\"");
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
    void Select(std::initializer_list<int> rows) {
        inbox->lvEmailList.ClearSelection();
        for (int row : rows)
            inbox->lvEmailList.SetSelected(row, true);
    }
    void RunPosted() { scope.App().ProcessMessages(); }
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

TEST_F(InboxWindow, MailboxMenuSwitchesAndOnlyGrows) {
    Start();
    dialogs.QueueAnswer("&Work");
    inbox->LMDpfSubMailboxesClick();
    RunPosted();
    EXPECT_EQ(inbox->MailboxFolder, AnsiString(data + "/Work"));
    EXPECT_EQ(Senders(), std::vector<std::string>{"work"});
    EXPECT_EQ(inbox->Caption(), "Saved Messages For: Work");
    EXPECT_EQ(inbox->pmMailBoxes.Items.GetCount(), 3)
        << "Rejected, Work, Other; OTHER=... is a repeat";

    dialogs.QueueAnswer("Other");
    inbox->LMDpfSubMailboxesClick();
    RunPosted();
    EXPECT_EQ(inbox->MailboxFolder, AnsiString(folder / "mail/Other"));
    EXPECT_EQ(Status(), "0 Messages");

    dialogs.QueueAnswer("Rejected");
    inbox->LMDpfSubMailboxesClick();
    RunPosted();
    EXPECT_EQ(inbox->MailboxName, "Rejected Mail");
    EXPECT_EQ(Senders(), std::vector<std::string>{"spam"});
    EXPECT_EQ(inbox->pmMailBoxes.Items.GetCount(), 3);
}

TEST_F(InboxWindow, DeleteAsksAndDeletesTheFirstSelectedFile) {
    Start();
    Select({1, 2});
    dialogs.QueueAnswer("Cancel");
    inbox->LMDpfDeleteClick();
    EXPECT_EQ(inbox->lvEmailList.Count(), 3);
    EXPECT_EQ(inbox->lvEmailList.SelCount(), 2) << "Cancel keeps rows and selection";

    dialogs.QueueAnswer("OK");
    inbox->LMDpfDeleteClick();
    EXPECT_FALSE(PathExists(folder / "mail/Inbox/2.eml"));
    EXPECT_TRUE(PathExists(folder / "mail/Inbox/1.eml"));
    EXPECT_EQ(Status(), "2.eml Deleted!");
    EXPECT_EQ(dialogs.Transcript().back(),
              "message box \"Warning\": \nYou are about to delete:\n\n 2.eml\n\n Press OK to "
              "continue?\n -> OK");
    EXPECT_EQ(inbox->LMDpfDelete.BevelOuter(), bvRaised);
}

TEST_F(InboxWindow, DeleteSelectedAndAll) {
    Start();
    dialogs.QueueAnswer("Selected");
    inbox->LMDpfSubDeleteClick();
    RunPosted();
    EXPECT_EQ(dialogs.Transcript().size(), 1u) << "nothing selected: no box";

    Select({0, 2});
    dialogs.QueueAnswer("Selected");
    dialogs.QueueAnswer("OK");
    inbox->LMDpfSubDeleteClick();
    RunPosted();
    EXPECT_EQ(Senders(), std::vector<std::string>{"bob"});
    EXPECT_EQ(Status(), "1 Messages");

    dialogs.QueueAnswer("All");
    dialogs.QueueAnswer("OK");
    inbox->LMDpfSubDeleteClick();
    RunPosted();
    EXPECT_EQ(Status(), "0 Messages");
    EXPECT_NE(dialogs.Transcript().back().Pos("delete 1 messages"), 0);
}

TEST_F(InboxWindow, DoubleClickOpensTheFirstSelectedMessageInTheClient) {
    Start();
    inbox->lvEmailList.DblClick();
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_FALSE(PathExists(record)) << "nothing selected: nothing starts";
    Select({2, 0});
    inbox->lvEmailList.DblClick();
    for (int i = 0; i < 300 && !PathExists(record); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_EQ(ReadFileBytes(record),
              folder / "clients/recorder" + "\n" + folder / "mail/Inbox/3.eml" + "\n");
    EXPECT_EQ(inbox->lvEmailList.Cursor(), crHandPoint);
}

TEST_F(InboxWindow, EmailersMenuOffersTheClients) {
    Start();
    dialogs.QueueAnswer("none");
    inbox->LMDpfSubEmailersClick();
    EXPECT_EQ(dialogs.Transcript().back(), "menu pmEmailers [Recorder] -> none");
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
