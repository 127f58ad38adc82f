#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "inbox/InboxForm.h"
#include "support/GlobalScope.h"
#include "support/TempFolder.h"

namespace {

std::string Message(const std::string& from, const std::string& subject, const std::string& date) {
    return "From: " + from + "\r\nSubject: " + subject + "\r\nDate: " + date +
           "\r\nContent-Type: text/plain\r\n\r\nbody\r\n";
}

class InboxScan : public ::testing::Test {
protected:
    TTempFolder folder;
    TGlobalScope scope{AnsiString(folder / "bin/vellumdesk")};
    TInboxFrm inbox;

    void SetUp() override {
        inbox.MailboxFolder = AnsiString(folder.Path()) + "/box";
        inbox.MailboxName = "box";
        for (TStringList* list :
             {&inbox.FromFilterTexts, &inbox.SubjectFilterTexts, &inbox.DateFilterTexts})
            list->SetSorted(true);
        inbox.LMDcbFilterType.SetItemIndex(0);
    }
    void Write(const std::string& name, std::string_view bytes) {
        folder.Write("box/" + name, bytes);
    }
    // The start-up sequence: scan, then the Arrival Date sort.
    void StartUp() {
        inbox.ScanMessages();
        Utils->SortColumn = 2;
        inbox.lvEmailList.SetSortType(TSortType::stText);
    }
    std::vector<std::string> Column(int column) {
        std::vector<std::string> out;
        for (int i = 0; i < inbox.lvEmailList.Count(); ++i) {
            const TListItem& row = inbox.lvEmailList.Item(i);
            out.push_back(column == 0 ? row.Caption.str() : row.SubItems[column - 1].str());
        }
        return out;
    }
    std::string Status() { return inbox.LMDpfStatusBar.Caption().str(); }
};

TEST_F(InboxScan, RowsHoldTheSevenFields) {
    const std::string bytes =
        "From: Ann\r\nSubject: Re: Hi\r\nDate: Mon, 3 Mar 2003 12:34:56 +0100\r\n"
        "Content-Type: multipart/mixed;\r\n\tboundary=\"q\"\r\n\r\n--q\r\n"
        "\tfilename=\"x.pdf\"\r\n\r\nAAA\r\n--q\r\n\tfilename=y.txt\r\n\r\nBBB\r\n"
        "--q--\r\n";
    Write("a.eml", bytes);
    inbox.ScanMessages();
    ASSERT_EQ(inbox.lvEmailList.Count(), 1);
    const TListItem& row = inbox.lvEmailList.Item(0);
    EXPECT_EQ(row.Caption, "Ann");
    const std::vector<std::string> expected{
        "Re: Hi",       "03.03.2003 12.34.56+0100", std::to_string(bytes.size()),
        "x.pdf, y.txt", "multipart/mixed;",         "a.eml"};
    EXPECT_EQ(std::vector<std::string>(row.SubItems.begin(), row.SubItems.end()), expected);
    EXPECT_EQ(inbox.Caption(), "Saved Messages For: box");
    EXPECT_EQ(Status(), "1 Messages");
}

TEST_F(InboxScan, StrangeFilesCostOnlyTheirOwnRow) {
    using namespace std::string_view_literals;
    Write("empty.eml", "");
    Write("nul.eml", "\0From: hidden"sv);
    Write("crlf.eml", "\r\n");
    Write("binary.eml", "\x7f"
                        "ELF\x02\x01\x01\0\0\0"sv);
    Write("UPPER.EML", Message("x", "y", "z"));
    Write("a.emlx", Message("x", "y", "z"));
    Write(".hidden.eml", Message("Dot", "s", "Mon, 3 Mar 2003 12:34:56 +0100"));
    folder.MakeFolder("box/folder.eml");
    ::mkfifo((folder / "box/pipe.eml").c_str(), 0600);
    for (const auto& [link, target] : {std::pair{"dangling.eml", "none.eml"},
                                       {"to-empty.eml", "empty.eml"},
                                       {"to-folder.eml", "folder.eml"},
                                       {"to-crlf.eml", "crlf.eml"}})
        ASSERT_EQ(::symlink(target, (folder / ("box/" + std::string(link))).c_str()), 0);
    inbox.ScanMessages();
    std::vector<std::string> names = Column(6);
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names,
              (std::vector<std::string>{".hidden.eml", "binary.eml", "crlf.eml", "to-crlf.eml"}));
    // The files the scan kept are those a listing that looks at each entry keeps.
    TStringList listed;
    Utils->SearchFiles(inbox.MailboxFolder + "/*.eml", faAnyFile, listed, false);
    std::vector<std::string> kept, expected;
    for (const AnsiString& name : inbox.MessageFiles)
        kept.push_back(name.str());
    for (const AnsiString& name : listed)
        expected.push_back(name.str());
    std::sort(kept.begin(), kept.end());
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(kept, expected);
    for (int i = 0; i < inbox.lvEmailList.Count(); ++i) {
        const TListItem& row = inbox.lvEmailList.Item(i);
        if (row.SubItems[5] == ".hidden.eml") continue;
        EXPECT_EQ(row.Caption, "NA");
        EXPECT_EQ(row.SubItems[1], "13.00.0000  ");
        EXPECT_EQ(row.SubItems[4], "NA");
    }
}

TEST_F(InboxScan, AMissingFolderGivesNoRowsAndTheCaptionAllTheSame) {
    inbox.MailboxName = "Gone";
    inbox.ScanMessages();
    EXPECT_EQ(inbox.lvEmailList.Count(), 0);
    EXPECT_EQ(Status(), "0 Messages");
    EXPECT_EQ(inbox.Caption(), "Saved Messages For: Gone");
}

TEST_F(InboxScan, StartUpSortsByArrivalDateDescending) {
    Write("1.eml", Message("a", "s", "Mon, 5 Jan 2003 10:00:00 +0000"));
    Write("2.eml", Message("b", "s", "Tue, 31 Dec 2002 10:00:00 +0000"));
    Write("3.eml", "From: nodate\r\n\r\nx\r\n");
    StartUp();
    EXPECT_EQ(Column(0), (std::vector<std::string>{"nodate", "b", "a"}))
        << "month first: December stands above January, no date above all";
}

TEST_F(InboxScan, ColumnClicksToggleAndArrivalDateStartsDescending) {
    Write("1.eml", Message("ann", "s", "Mon, 5 Jan 2003 10:00:00 +0000") + std::string(20, 'x'));
    Write("2.eml", Message("Bob", "s", "Tue, 4 Feb 2003 10:00:00 +0000"));
    Write("3.eml", Message("carl", "s", "Tue, 4 Mar 2003 10:00:00 +0000") + std::string(900, 'x'));
    StartUp();
    inbox.lvEmailListColumnClick(0);
    EXPECT_EQ(Column(0), (std::vector<std::string>{"ann", "Bob", "carl"}));
    inbox.lvEmailListColumnClick(0);
    EXPECT_EQ(Column(0), (std::vector<std::string>{"carl", "Bob", "ann"}));
    inbox.lvEmailListColumnClick(0);
    EXPECT_EQ(Column(0), (std::vector<std::string>{"ann", "Bob", "carl"}));
    inbox.lvEmailListColumnClick(2);
    EXPECT_EQ(Column(0), (std::vector<std::string>{"carl", "Bob", "ann"}));
    inbox.lvEmailListColumnClick(2);
    EXPECT_EQ(Column(0), (std::vector<std::string>{"ann", "Bob", "carl"}));
    inbox.lvEmailListColumnClick(3);
    EXPECT_EQ(Column(0), (std::vector<std::string>{"Bob", "ann", "carl"})) << "sizes are numbers";
}

TEST_F(InboxScan, ASecondStartUpSortKeepsTheUsersOrderAndTheNextDateClickReverses) {
    Write("1.eml", Message("a", "s", "Mon, 5 Jan 2003 10:00:00 +0000"));
    Write("2.eml", Message("b", "s", "Tue, 4 Feb 2003 10:00:00 +0000") + std::string(500, 'x'));
    StartUp();
    inbox.lvEmailListColumnClick(3);
    EXPECT_EQ(Column(0), (std::vector<std::string>{"a", "b"}));
    StartUp(); // as a mailbox switch does
    EXPECT_EQ(Column(0), (std::vector<std::string>{"a", "b"})) << "the scan re-sorts by Size";
    EXPECT_EQ(Utils->SortColumn, 2);
    inbox.lvEmailListColumnClick(2);
    EXPECT_TRUE(Utils->SortFlag) << "counts as a second click on Arrival Date";
    EXPECT_EQ(Column(0), (std::vector<std::string>{"a", "b"})) << "ascending Arrival Date";
}

TEST_F(InboxScan, CompareIgnoresCaseAndTreatsBadSizesAsZero) {
    TListItem ann{"ann", {"", "", "x", "", "", ""}, false, {}};
    TListItem ANN{"ANN", {"", "", "y", "", "", ""}, false, {}};
    Utils->SortColumn = 0;
    EXPECT_EQ(inbox.lvEmailListCompare(ann, ANN), 0);
    Utils->SortColumn = 3;
    EXPECT_EQ(inbox.lvEmailListCompare(ann, ANN), 0);
}

TEST_F(InboxScan, FilterIsACaseSensitiveSubstringAppliedAtTheNextScan) {
    Write("1.eml", Message("Ann", "Re: Hello", "Mon, 5 Jan 2003 10:00:00 +0000"));
    Write("2.eml", Message("Joanna", "a:b:c", "Tue, 4 Feb 2003 10:00:00 +0000"));
    Write("3.eml", Message("Bob", "", "Tue, 4 Feb 2003 11:00:00 +0000"));
    StartUp();
    EXPECT_EQ(
        std::vector<std::string>(inbox.SubjectFilterTexts.begin(), inbox.SubjectFilterTexts.end()),
        (std::vector<std::string>{" Hello", "b:c"}));
    EXPECT_EQ(std::vector<std::string>(inbox.DateFilterTexts.begin(), inbox.DateFilterTexts.end()),
              (std::vector<std::string>{"01.05.2003", "02.04.2003"}));

    inbox.LMDcbFilterType.UserPick(1);
    EXPECT_EQ(inbox.LMDcbFilterText.Items().Count(), 3);
    inbox.LMDcbFilterText.UserType("ann");
    EXPECT_EQ(inbox.lvEmailList.Count(), 3) << "typing alone changes nothing";
    inbox.LMDpfRefreshClick();
    EXPECT_EQ(Column(0), std::vector<std::string>{"Joanna"});
    EXPECT_EQ(Status(), "1 Messages");

    inbox.LMDcbFilterType.UserPick(2);
    EXPECT_EQ(inbox.LMDcbFilterText.Text(), "");
    inbox.LMDpfRefreshClick();
    EXPECT_EQ(Status(), "0 Messages") << "an empty filter text matches nothing";
    EXPECT_EQ(inbox.SubjectFilterTexts.Count(), 2) << "filtered scans add no texts";

    inbox.LMDcbFilterType.UserPick(0);
    EXPECT_EQ(inbox.LMDcbFilterText.Items().Count(), 0);
    inbox.LMDpfRefreshClick();
    EXPECT_EQ(Status(), "3 Messages");
}

TEST_F(InboxScan, AnEventPostedBeforeTheScanRunsBetweenTwoFiles) {
    Write("1.eml", Message("a", "s", "d"));
    Write("2.eml", Message("b", "s", "d"));
    int rowsWhenTheEventRan = -1;
    scope.App().Post([&] { rowsWhenTheEventRan = inbox.lvEmailList.Count(); });
    inbox.ScanMessages();
    EXPECT_EQ(rowsWhenTheEventRan, 0) << "it runs at the first file's yield";
    int rowsAtSecondEvent = -1;
    scope.App().Post(
        [&] { scope.App().Post([&] { rowsAtSecondEvent = inbox.lvEmailList.Count(); }); });
    inbox.ScanMessages();
    EXPECT_EQ(rowsAtSecondEvent, 1) << "one file later, one row stands";
}

TEST_F(InboxScan, OneNoticePerScanForTheBinding) {
    for (int i = 0; i < 50; ++i)
        Write(std::to_string(i) + ".eml", Message("a", "s", "d"));
    int rowNotices = 0;
    inbox.lvEmailList.Subscribe([&](TControl&, TChange change) {
        if (change == TChange::Rows) ++rowNotices;
    });
    inbox.ScanMessages();
    EXPECT_EQ(rowNotices, 1);
}

TEST_F(InboxScan, HandOffFileNamesTheMailboxAndTheSender) {
    folder.Write("bin/vellumdesk.ini", "C:\\Mail\\Work\r\nAnn\r\n");
    EXPECT_EQ(inbox.LoadStartMailbox(), "Work");
    EXPECT_EQ(inbox.MailboxFolder, "C:\\Mail\\Work");
    EXPECT_EQ(inbox.SenderLine, "Ann");

    TInboxFrm second;
    folder.Write("bin/vellumdesk.ini", "/home/u/Mail/Home/\r\n");
    EXPECT_EQ(second.LoadStartMailbox(), "");
    EXPECT_EQ(second.MailboxFolder, "/home/u/Mail/Home/");
    EXPECT_EQ(second.SenderLine, "");
}

} // namespace
