// The forward dialog and the main window's Forward button, headless, against
// the recording server on 127.0.0.1.

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "ForwardingFixture.h"
#include "forwarding/SMTPFunc.h"
#include "forwarding/SendToForm.h"
#include "inbox/InboxForm.h"
#include "platform/ScriptedDialogs.h"
#include "settings/Globals.h"
#include "support/EnvOverride.h"

namespace {

const std::string saved = "From: Ann <ann@example.org>\nDate: Mon, 5 Jan 2026 10:00:00 +0000\n"
                          "Subject: Minutes\n\nThe minutes.\n";

class SendToFormTest : public TForwardingTest {
protected:
    TEnvOverride env;
    TScriptedDialogs dialogs;
    std::string data = temp / "data/Quillpost Users";
    std::string file = temp / "mail/Inbox/1.eml";
    std::unique_ptr<TInboxFrm> inbox;
    std::unique_ptr<TfrmSendTo> sendTo;

    void SetUp() override {
        env.Set("XDG_DATA_HOME", (temp / "data").c_str());
        Dialogs = &dialogs;
        temp.Write("handoff.ini",
                   temp / "mail/Inbox" + "\r\nSam Reader <sam@quillpost.example>\r\n");
        temp.Write("mail/Inbox/1.eml", saved);
        WriteConfig(PlainServer().Host());
        PlainServer().Clear();
    }
    void TearDown() override {
        sendTo.reset();
        inbox.reset();
        Dialogs = nullptr;
    }
    void WriteConfig(const std::string& host) {
        const ConfigRecord record = SmtpConfig(host);
        temp.Write("data/Quillpost Users/Config.cfg",
                   std::string(reinterpret_cast<const char*>(record.Bytes.data()), 1024));
    }
    void Start() {
        inbox = std::make_unique<TInboxFrm>();
        sendTo = std::make_unique<TfrmSendTo>();
        frmSendTo = sendTo.get();
        inbox->HandOffPath = AnsiString(temp / "handoff.ini");
        inbox->FormActivate();
        inbox->lvEmailList.SetSelected(0, true);
    }
    // Clicks Forward; act runs while the dialog is open.
    void Forward(std::function<void(TfrmSendTo&)> act) {
        scope.App().ModalLoop = [act](TForm& form) { act(static_cast<TfrmSendTo&>(form)); };
        inbox->LMDpfSend.Click();
        scope.App().ModalLoop = nullptr;
    }
    std::string History() { return ReadFileBytes(data + "/AddressBook.ini"); }
};

TEST_F(SendToFormTest, ForwardSendsTheSavedFileWithTheNoteAndClosesTheDialog) {
    Start();
    struct stat before {};
    ::stat(file.c_str(), &before);
    bool wasOpen = false;
    Forward([&wasOpen](TfrmSendTo& dialog) {
        wasOpen = dialog.Visible() && Application->ModalForm() == &dialog;
        dialog.LMDcbSendTo.UserType("Bob <bob@example.org>");
        dialog.LMDeSubject.UserType("FW: Minutes");
        dialog.mMsgBody.UserType("Please read.\nThanks");
        dialog.LMDpfSend.Click();
    });
    EXPECT_TRUE(wasOpen);
    EXPECT_FALSE(sendTo->Visible());
    const std::string mail = PlainServer().Mail(1);
    EXPECT_EQ(WithoutOwnHeaders(mail),
              CrLf("Comments: FW: Minutes\nFrom: Ann <ann@example.org>\n"
                   "Date: Mon, 5 Jan 2026 10:00:00 +0000\nSubject: Minutes\n\n"
                   "Please read.\nThanks\n\nThe minutes.\n"))
        << mail;
    EXPECT_EQ(FieldOf(mail, "Resent-To"), "Bob <bob@example.org>");
    EXPECT_EQ(FieldOf(mail, "Resent-From"), "Sam Reader <sam@quillpost.example>");
    EXPECT_NE(PlainServer().Log().find("MAIL <sam@quillpost.example>"), std::string::npos);
    EXPECT_EQ(History(), "Bob <bob@example.org>\r\n");
    struct stat after {};
    ::stat(file.c_str(), &after);
    EXPECT_EQ(ReadFileBytes(file), saved);
    EXPECT_EQ(after.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
    EXPECT_EQ(after.st_mtim.tv_sec, before.st_mtim.tv_sec);
}

TEST_F(SendToFormTest, ToAndSubjectStayAcrossOpeningsTheNoteStartsEmpty) {
    Start();
    Forward([](TfrmSendTo& dialog) {
        dialog.LMDcbSendTo.UserType("bob@example.org");
        dialog.LMDeSubject.UserType("Look");
        dialog.mMsgBody.UserType("A note left behind");
        dialog.LMDpfCancel.Click();
    });
    std::vector<std::string> seen;
    Forward([&seen](TfrmSendTo& dialog) {
        seen = {dialog.LMDcbSendTo.Text().str(), dialog.LMDeSubject.Text().str(),
                dialog.mMsgBody.Text().str(), std::to_string(dialog.LMDcbSendTo.Items().Count())};
        dialog.LMDcbSendTo.UserType("BOB@example.org");
        dialog.WindowClose();
    });
    EXPECT_EQ(seen, (std::vector<std::string>{"bob@example.org", "Look", "", "1"}));
    // Cancel and the title bar both record "To:"; a case variant is no new entry.
    EXPECT_EQ(History(), "bob@example.org\r\n");
    EXPECT_EQ(PlainServer().MailCount(), 0);
    EXPECT_EQ(PlainServer().Log(), "");
}

TEST_F(SendToFormTest, AHistoryTheListCannotHoldWholeIsNotWrittenOver) {
    const std::string held("ann@example.org\r\n\0bob@example.org\r\n", 35);
    temp.Write("data/Quillpost Users/AddressBook.ini", held);
    Start();
    Forward([](TfrmSendTo& dialog) {
        EXPECT_EQ(dialog.LMDcbSendTo.Items().Count(), 0);
        dialog.LMDcbSendTo.UserType("cy@example.org");
        dialog.LMDpfCancel.Click();
    });
    EXPECT_EQ(History(), held);
}

TEST_F(SendToFormTest, FailedSendClosesTheDialogAndLeavesTheReasonInLastResult) {
    WriteConfig("127.0.0.1:" + std::to_string(ClosedPort()));
    Start();
    Forward([](TfrmSendTo& dialog) {
        dialog.LMDcbSendTo.UserType("bob@example.org");
        dialog.LMDpfSend.Click();
    });
    EXPECT_FALSE(sendTo->Visible());
    EXPECT_EQ(SMTPFunc->LastResult, 4);
    EXPECT_EQ(sendTo->LMDpfStatusBar.Caption(), "");
    EXPECT_EQ(sendTo->LMDpfSend.Cursor(), crHandPoint);
}

TEST_F(SendToFormTest, UnreadableFileKeepsTheDialogOpenAndTheButtonReady) {
    Start();
    std::filesystem::remove(file);
    bool threw = false, openAfter = false;
    Forward([&](TfrmSendTo& dialog) {
        dialog.LMDcbSendTo.UserType("bob@example.org");
        try {
            dialog.LMDpfSendClick();
        } catch (const Exception&) {
            threw = true;
        }
        openAfter = dialog.Visible();
        EXPECT_EQ(dialog.LMDpfSend.Cursor(), crHandPoint);
        dialog.LMDpfCancel.Click();
    });
    EXPECT_TRUE(threw);
    EXPECT_TRUE(openAfter);
    EXPECT_EQ(PlainServer().Log(), "");
}

TEST_F(SendToFormTest, DuringASendEventsRunTheHourglassIsOverSendAndCancelIsRefused) {
    Start();
    struct {
        bool ran = false, sending = false, visibleAfterCancel = false;
        TCursor cursor = crDefault;
    } seen;
    Forward([&seen](TfrmSendTo& dialog) {
        dialog.LMDcbSendTo.UserType("bob@example.org");
        // The press of Send runs the loop once; the second event comes
        // during the send itself.
        Application->Post([&seen, &dialog] {
            Application->Post([&seen, &dialog] {
                seen.ran = true;
                seen.sending = dialog.Sending();
                seen.cursor = dialog.LMDpfSend.Cursor();
                dialog.LMDpfCancel.Click();
                dialog.WindowClose();
                seen.visibleAfterCancel = dialog.Visible();
            });
        });
        dialog.LMDpfSend.Click();
    });
    EXPECT_TRUE(seen.ran);
    EXPECT_TRUE(seen.sending);
    EXPECT_EQ(seen.cursor, crHourGlass);
    EXPECT_TRUE(seen.visibleAfterCancel);
    EXPECT_EQ(PlainServer().MailCount(), 1);
    EXPECT_FALSE(sendTo->Visible());
}

TEST_F(SendToFormTest, ForwardNeedsASelectedRow) {
    Start();
    inbox->lvEmailList.ClearSelection();
    bool opened = false;
    Forward([&opened](TfrmSendTo& dialog) {
        opened = true;
        dialog.WindowClose();
    });
    EXPECT_FALSE(opened);
    EXPECT_FALSE(PathExists(data + "/AddressBook.ini"));
}

} // namespace
