// Where menus and windows land on the screen, the menus of the list, the
// cell tooltips and the ring of a second start, on real widgets.

#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMenu>
#include <QScreen>
#include <QTimer>
#include <QToolTip>

#include "gui/GuiWindowFixture.h"
#include "gui/PopupPlacement.h"
#include "gui/QtDialogs.h"
#include "gui/RaiseChannel.h"
#include "gui/WindowFrame.h"
#include "inbox/ProgramEntry.h"
#include "platform/InstanceLock.h"
#include "support/ChildProcess.h"

namespace {

TEST(GuiPlacement, PopupPositionKeepsTheMenuOnTheScreen) {
    const QRect screen(0, 0, 800, 600);
    const struct {
        const char* name;
        QPoint at;
        QSize menu;
        int anchorTop;
        QPoint expected;
    } cases[] = {
        {"room below: under the button", {100, 300}, {120, 80}, 274, {100, 300}},
        {"no room below: above the button", {100, 560}, {120, 80}, 534, {100, 454}},
        {"exactly fits below", {100, 520}, {120, 80}, 494, {100, 520}},
        {"right edge: shifted left", {750, 100}, {120, 80}, 74, {680, 100}},
        {"no anchor, no room: lifted to fit", {10, 590}, {50, 40}, 590, {10, 550}},
        {"taller than the screen: from the top", {0, 300}, {50, 900}, 274, {0, 0}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(PopupPosition(c.at, c.menu, screen, c.anchorTop), c.expected);
    }
}

TEST(GuiPlacement, FittedGeometryShrinksAndMovesIntoTheFreeArea) {
    const QRect area(0, 0, 853, 533); // 1280 x 800 at scale factor 1.5
    const struct {
        const char* name;
        QRect wanted;
        QSize minimum;
        QRect expected;
    } cases[] = {
        {"fits: unchanged", {10, 10, 600, 400}, {300, 200}, {10, 10, 600, 400}},
        {"too tall: shrinks", {0, 0, 900, 840}, {300, 200}, {0, 0, 853, 533}},
        {"off the bottom: moves up", {100, 300, 600, 400}, {300, 200}, {100, 133, 600, 400}},
        {"below its minimum: grows", {0, 0, 100, 100}, {300, 200}, {0, 0, 300, 200}},
        {"off the left: moves right", {-50, 0, 600, 400}, {300, 200}, {0, 0, 600, 400}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(FittedGeometry(c.wanted, c.minimum, area), c.expected);
    }
}

// The real menu of a "v" button, opened by the real dialog service.
class GuiPopups : public GuiWindow {
protected:
    TQtDialogs qtDialogs;
    QRect menuGeometry;

    void SetUp() override {
        GuiWindow::SetUp();
        qtDialogs.Parent = window.get();
        Dialogs = &qtDialogs;
    }
    QRect OpenMenuOf(const char* name) {
        menuGeometry = {};
        QTimer::singleShot(50, [this] {
            if (QWidget* menu = QApplication::activePopupWidget()) {
                menuGeometry = menu->geometry();
                menu->close();
            }
        });
        Button(name).setFocus();
        QTest::keyClick(&Button(name), Qt::Key_Space);
        return menuGeometry;
    }
    QRect ScreenRectOf(QWidget& widget) {
        return {widget.mapToGlobal(QPoint(0, 0)), widget.size()};
    }
};

TEST_F(GuiPopups, AMenuOpensUnderItsButtonOrAboveItWhereTheScreenEnds) {
    const QRect screen = window->screen()->availableGeometry();
    for (const int top : {0, screen.bottom() - window->height() + 1}) {
        SCOPED_TRACE(top);
        window->move(window->x(), top);
        QCoreApplication::processEvents();
        for (const char* name : {"LMDpfSubDelete", "LMDpfSubMailboxes"}) {
            SCOPED_TRACE(name);
            const QRect button = ScreenRectOf(Button(name));
            const QRect menu = OpenMenuOf(name);
            ASSERT_TRUE(menu.isValid());
            EXPECT_EQ(menu.left(), button.left());
            if (button.bottom() + menu.height() < screen.bottom())
                EXPECT_EQ(menu.top(), button.bottom() + 1) << "under the button";
            else
                EXPECT_EQ(menu.bottom(), button.top() - 1) << "above the button";
        }
    }
}

TEST_F(GuiPopups, TheWindowNeverOpensLargerThanTheScreen) {
    const QRect screen = window->screen()->availableGeometry();
    EXPECT_TRUE(screen.contains(window->geometry())) << "opened inside the free area";
    form->SetWidth(5000);
    EXPECT_LE(window->width(), screen.width());
    for (auto* button : window->findChildren<TPanelButtonWidget*>())
        EXPECT_TRUE(window->rect().contains(
            QRect(button->mapTo(window.get(), QPoint(0, 0)), button->size())))
            << button->objectName().toStdString();
}

TEST_F(GuiPopups, RowAndHeaderMenusActThroughTheHandlers) {
    auto& commands = window->ListCommands();
    form->lvEmailList.SetSelected(0, true);
    auto rowMenu = commands.RowMenu();
    QStringList entries;
    for (const QAction* action : rowMenu->actions())
        if (!action->isSeparator()) entries << action->text();
    EXPECT_EQ(
        entries.join('|'),
        "Run Mail|Run Mail with|Forward|Add to Master Priority List|Add to Mailbox Priority List|"
        "Add to Master Rejection List|Add to Mailbox Rejection List|Delete");
    dialogs.QueueAnswer("OK");
    Dialogs = &dialogs;
    commands.Run(rowMenu->actions().back());
    EXPECT_FALSE(PathExists(folder / "box/c.eml")) << "Delete ran the button's handler";

    form->SetReady(false);
    rowMenu = commands.RowMenu();
    EXPECT_FALSE(rowMenu->actions().back()->isEnabled()) << "a busy window refuses it";
    form->SetReady(true);

    auto headerMenu = commands.HeaderMenu();
    ASSERT_EQ(headerMenu->actions().size(), 7);
    EXPECT_EQ(headerMenu->actions()[0]->text(), "Sort by From");
    EXPECT_TRUE(headerMenu->actions()[2]->isChecked()) << "sorted by arrival at the start";
    commands.Run(headerMenu->actions()[0]);
    EXPECT_EQ(Cell(0, 0), "alice");
    EXPECT_EQ(List().header()->sortIndicatorSection(), 0);
    EXPECT_EQ(List().header()->sortIndicatorOrder(), Qt::AscendingOrder);
    commands.Run(commands.HeaderMenu()->actions()[0]);
    EXPECT_EQ(Cell(0, 0), "carol") << "a second time reverses";
    EXPECT_EQ(List().header()->sortIndicatorOrder(), Qt::DescendingOrder);
}

TEST_F(GuiPopups, TheHeaderShowsTheSortOfTheStart) {
    EXPECT_TRUE(List().header()->isSortIndicatorShown());
    EXPECT_EQ(List().header()->sortIndicatorSection(), 2);
    EXPECT_EQ(List().header()->sortIndicatorOrder(), Qt::DescendingOrder) << "newest first";
}

TEST_F(GuiPopups, ACellTooNarrowShowsItsTextInATooltip) {
    const struct {
        const char* name;
        int column, width;
        QString tip; // empty: no tooltip
    } cases[] = {
        {"fits: nothing", 0, 200, ""},
        {"cut short: the whole text", 0, 12, "bob"},
        {"arrival date: the Date header too", 2, 400,
         "03.04.2003 10.00.00+0000\nDate: Tue, 4 Mar 2003 10:00:00 +0000"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        List().setColumnWidth(c.column, c.width);
        QToolTip::hideText();
        const QRect cell = List().visualRect(List().model()->index(0, c.column));
        QHelpEvent help(QEvent::ToolTip, cell.center(),
                        List().viewport()->mapToGlobal(cell.center()));
        QApplication::sendEvent(List().viewport(), &help);
        EXPECT_EQ(QToolTip::isVisible() ? QToolTip::text() : QString(), c.tip);
    }
}

TEST_F(GuiPopups, ARingUnminimisesAndRaisesTheWindow) {
    TRaiseChannel channel(folder / "raise.sock", *window);
    ASSERT_TRUE(channel.Listening());
    window->showMinimized();
    bool rung = false;
    QObject::connect(&channel, &TRaiseChannel::rung, [&] { rung = true; });
    ASSERT_TRUE(TRaiseChannel::Ring(folder / "raise.sock"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return rung; }, 5000));
    EXPECT_FALSE(window->isMinimized());
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(TRaiseChannel::Ring(folder / "nobody.sock"));
}

// A second start of the real program finds the lock held, rings, and ends.
TEST_F(GuiPopups, ASecondStartRingsTheRunningInstance) {
    env.Set("XDG_RUNTIME_DIR", folder.Path().c_str());
    TInstanceLock lock;
    ASSERT_TRUE(lock.TryAcquire(instanceLockName));
    TRaiseChannel channel(TRaiseChannel::PathFor(instanceLockName), *window);
    int rings = 0;
    QObject::connect(&channel, &TRaiseChannel::rung, [&] { ++rings; });
    window->showMinimized();
    const TChildResult second = RunChild({BuiltProgram("vellumdesk")});
    EXPECT_EQ(second.exitCode, 0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return rings == 1; }, 5000));
    EXPECT_FALSE(window->isMinimized());
}

} // namespace
