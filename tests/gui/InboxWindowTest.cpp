#include <QAbstractItemModelTester>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QTest>
#include <QTreeView>
#include <filesystem>
#include <gtest/gtest.h>
#include <thread>

#include "gui/GuiWindowFixture.h"
#include "gui/ListViewModel.h"
#include "gui/PanelButtonWidget.h"
#include "gui/QtApplication.h"
#include "gui/QtText.h"
#include "inbox/InboxForm.h"
#include "platform/ScriptedDialogs.h"
#include "platform/linux/LinuxShell.h"
#include "settings/Globals.h"
#include "support/EnvOverride.h"
#include "support/GlobalScope.h"
#include "support/NextRegistry.h"
#include "support/TempFolder.h"

namespace {

TEST_F(GuiWindow, ShowsTheScanNewestFirstWithTheModelsTexts) {
    EXPECT_EQ(Cell(0, 0), "bob");
    EXPECT_EQ(Cell(2, 0), "carol");
    EXPECT_EQ(Status(), "3 Messages");
    EXPECT_EQ(window->windowTitle(),
              QString::fromUtf8("Saved Messages For: box \u2014 Vellumdesk"));
    EXPECT_EQ(form->Caption(), "Saved Messages For: box") << "the model keeps its caption";
    EXPECT_EQ(List().model()->headerData(2, Qt::Horizontal).toString(), "Arrival Date");
}

TEST_F(GuiWindow, AHeaderClickSortsByThatColumn) {
    QTest::mouseClick(List().header()->viewport(), Qt::LeftButton, {},
                      QPoint(List().header()->sectionViewportPosition(0) + 5, 5));
    EXPECT_EQ(Cell(0, 0), "alice");
    EXPECT_EQ(Cell(1, 0), "bob");
    EXPECT_EQ(Cell(2, 0), "carol");
}

TEST_F(GuiWindow, ADoubleClickOpensTheSelectedMessageInTheClient) {
    const QRect row = List().visualRect(List().model()->index(1, 0));
    QTest::mouseClick(List().viewport(), Qt::LeftButton, {}, row.center());
    EXPECT_EQ(form->lvEmailList.SelectedIndex(), 1) << "the selection reaches the model";
    QTest::mouseDClick(List().viewport(), Qt::LeftButton, {}, row.center());
    ASSERT_TRUE(QTest::qWaitFor([&] { return PathExists(record); }, 5000));
    EXPECT_EQ(ReadFileBytes(record),
              HelperProgram("argv_recorder") + "\n" + folder / "box/b.eml" + "\n");
}

TEST_F(GuiWindow, DeleteAsksAndDeletes) {
    form->lvEmailList.SetSelected(0, true);
    QCoreApplication::processEvents();
    EXPECT_EQ(List().selectionModel()->selectedRows().size(), 1) << "the model's selection shows";
    dialogs.QueueAnswer("OK");
    QTest::mouseClick(&Button("LMDpfDelete"), Qt::LeftButton);
    EXPECT_FALSE(PathExists(folder / "box/c.eml"));
    EXPECT_EQ(Status(), "c.eml Deleted!");
    EXPECT_EQ(List().model()->rowCount(), 2);
    ASSERT_FALSE(dialogs.Transcript().empty());
    EXPECT_NE(dialogs.Transcript().back().Pos("You are about to delete:"), 0);
}

TEST_F(GuiWindow, TheBusyCursorRefusesASecondRefresh) {
    form->SetReady(false);
    EXPECT_EQ(Button("LMDpfRefresh").cursor().shape(), Qt::WaitCursor);
    std::filesystem::remove(folder / "box/a.eml");
    QTest::mouseClick(&Button("LMDpfRefresh"), Qt::LeftButton);
    EXPECT_EQ(List().model()->rowCount(), 3) << "no scan ran";
    form->SetReady(true);
    EXPECT_EQ(Button("LMDpfRefresh").cursor().shape(), Qt::PointingHandCursor);
    QTest::mouseClick(&Button("LMDpfRefresh"), Qt::LeftButton);
    EXPECT_EQ(List().model()->rowCount(), 2);
}

TEST_F(GuiWindow, ChoosingAFilterTypeOffersItsTexts) {
    auto* type = window->findChild<QComboBox*>("LMDcbFilterType");
    auto* text = window->findChild<QComboBox*>("LMDcbFilterText");
    EXPECT_EQ(type->count(), 4);
    type->activated(1);
    EXPECT_EQ(text->count(), 3);
    EXPECT_EQ(text->itemText(0), "alice");
}

TEST_F(GuiWindow, AnUncaughtErrorShowsTheExceptionBoxAndTheWindowGoesOn) {
    form->LMDpfHelp.OnClick = [] { throw EStringListError("List index out of bounds"); };
    QTest::mouseClick(&Button("LMDpfHelp"), Qt::LeftButton);
    ASSERT_FALSE(dialogs.Transcript().empty());
    EXPECT_EQ(dialogs.Transcript().back(), "exception: List index out of bounds");
    QTest::mouseClick(&Button("LMDpfRefresh"), Qt::LeftButton);
    EXPECT_EQ(Status(), "3 Messages");
}

TEST(GuiModel, PassesTheItemModelTesterThroughAScan) {
    TForm form{"Form"};
    TListView list{&form, "lvEmailList"};
    list.Columns = {{"From", 10}, {"Subject", 10}};
    TListViewModel model(list);
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    list.BeginUpdate();
    for (int i = 0; i < 1000; ++i) {
        TListItem& row = list.Add();
        row.Caption = AnsiString(static_cast<unsigned long>(i));
        row.SubItems = {"s"};
    }
    list.EndUpdate();
    EXPECT_EQ(model.rowCount(), 1000);
    list.Clear();
    EXPECT_EQ(model.rowCount(), 0);
}

TEST(GuiText, BytesShowAsUtf8OrWindows1252) {
    EXPECT_EQ(ToQString("Chlo\xC3\xA9"), QString::fromUtf8("Chlo\xC3\xA9"));
    EXPECT_EQ(ToQString("Chlo\xE9 \x80"), QString::fromUtf8("Chlo\xC3\xA9 \xE2\x82\xAC"));
    EXPECT_EQ(FromQString(QString::fromUtf8("\xC3\xA9")), "\xC3\xA9");
}

} // namespace
