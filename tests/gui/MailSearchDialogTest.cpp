// The Find Text window on Qt's offscreen platform: a person's typing, ticks,
// scope choice and Begin reach the models, and the rows come back on screen.

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>
#include <QTreeView>
#include <gtest/gtest.h>

#include "gui/MailSearchDialog.h"
#include "gui/QtApplication.h"
#include "inbox/InboxForm.h"
#include "platform/ScriptedDialogs.h"
#include "platform/linux/LinuxShell.h"
#include "search/MailSearch.h"
#include "support/EnvOverride.h"
#include "support/TempFolder.h"

namespace {

class GuiSearch : public ::testing::Test {
protected:
    TTempFolder folder;
    TEnvOverride env;
    TQtApplication application;
    TScriptedDialogs dialogs;
    TLinuxShell shell;
    std::unique_ptr<TInboxFrm> inbox;
    std::unique_ptr<TfrmMailSearch> search;
    std::unique_ptr<TMailSearchDialog> dialog;

    void SetUp() override {
        env.Set("XDG_DATA_HOME", (folder / "data").c_str());
        Application = &application;
        Dialogs = &dialogs;
        Shell = &shell;
        folder.Write("box/a.eml", "From: ann\r\nSubject: s\r\n\r\na Cat here\r\na cat there\r\n");
        inbox = std::make_unique<TInboxFrm>();
        inbox->MailboxFolder = AnsiString(folder / "box");
        search = std::make_unique<TfrmMailSearch>();
        frmMailSearch = search.get();
        search->OnSearch = [this](AnsiString text, bool cs, bool ww, unsigned short where) {
            return inbox->SearchMessages(std::move(text), cs, ww, where);
        };
        dialog = std::make_unique<TMailSearchDialog>(*search);
        dialog->show();
    }
    void TearDown() override {
        dialog.reset();
        frmMailSearch = nullptr;
        search.reset();
        inbox.reset();
        Shell = nullptr;
        Dialogs = nullptr;
        Application = nullptr;
    }
    template <typename W> W& Child(const char* name) { return *dialog->findChild<W*>(name); }
    QRadioButton& Scope(const char* caption) {
        for (QRadioButton* radio : Child<QGroupBox>("LMDrgWhere").findChildren<QRadioButton*>())
            if (radio->text() == caption) return *radio;
        throw std::runtime_error("no such scope");
    }
};

TEST_F(GuiSearch, APersonsSearchFillsTheRowsOnScreen) {
    QTest::keyClicks(Child<QComboBox>("LMDcbSearchStr").lineEdit(), "cat");
    // A click where the box and its caption stand.
    Child<QCheckBox>("LMDcbxCaseSense").click();
    Scope("Current Inbox").click();
    EXPECT_EQ(search->LMDcbSearchStr.Text(), "cat");
    EXPECT_TRUE(search->LMDcbxCaseSense.Checked());
    EXPECT_EQ(search->LMDrgWhere.ItemIndex(), 1);
    QTest::mouseClick(&Child<TPanelButtonWidget>("LMDpfBegin"), Qt::LeftButton);
    const auto* rows = Child<QTreeView>("lvSrchResult").model();
    ASSERT_EQ(rows->rowCount(), 1);
    EXPECT_EQ(rows->index(0, 0).data().toString(), "a cat there");
    EXPECT_EQ(rows->index(0, 2).data().toString(), "ann");
    EXPECT_EQ(rows->headerData(4, Qt::Horizontal).toString(), "File");
}

TEST_F(GuiSearch, KeepsTheOptionBoxesSideBySideAtEqualWidth) {
    EXPECT_EQ(dialog->minimumSize(), QSize(446, 275));
    dialog->resize(700, 400);
    QApplication::processEvents();
    const int w = (search->LMDpfOptions.Width() - 24) / 2;
    EXPECT_GT(w, 0);
    EXPECT_EQ(search->LMDgbOptions.Width(), w);
    EXPECT_EQ(search->LMDrgWhere.Width(), w);
    EXPECT_EQ(search->rgWhereLeft, search->gbOptionsLeft + w + 8);
}

} // namespace
