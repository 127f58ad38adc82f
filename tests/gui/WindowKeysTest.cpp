// Every key of the main window, pressed on the real widgets, reaches the
// handler it stands for; the panel buttons take the focus in order.

#include <QComboBox>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <functional>

#include "gui/GuiWindowFixture.h"
#include "gui/HotKeys.h"

namespace {

class GuiKeys : public GuiWindow {
protected:
    QWidget* Widget(const char* name) { return window->findChild<QWidget*>(name); }
    // Removes a message behind the window's back, so only a scan shows it gone.
    void RemoveBehindTheWindow() { std::filesystem::remove(folder / "box/a.eml"); }
    bool Rescanned() { return List().model()->rowCount() == 2; }
    void Press(const char* target, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QWidget* widget = Widget(target);
        ASSERT_NE(widget, nullptr) << target;
        widget->setFocus();
        QTest::keyClick(widget, key, modifiers);
        QCoreApplication::processEvents();
    }
};

struct TKeyCase {
    const char* name;
    const char* target; // the widget with the focus
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
};

TEST_F(GuiKeys, RefreshKeysScanAgain) {
    const TKeyCase cases[] = {
        {"F5 on the list", "lvEmailList", Qt::Key_F5, {}},
        {"F5 on a button", "LMDpfClose", Qt::Key_F5, {}},
        {"Space on Refresh", "LMDpfRefresh", Qt::Key_Space, {}},
        {"Enter on Refresh", "LMDpfRefresh", Qt::Key_Return, {}},
        {"Alt hot key of Refresh", "lvEmailList", Qt::Key_E, Qt::AltModifier},
    };
    for (const TKeyCase& c : cases) {
        SCOPED_TRACE(c.name);
        folder.Write("box/a.eml", "From: carol\r\nSubject: c\r\n\r\nx\r\n");
        form->LMDpfRefresh.Click();
        ASSERT_EQ(List().model()->rowCount(), 3);
        RemoveBehindTheWindow();
        Press(c.target, c.key, c.modifiers);
        EXPECT_TRUE(Rescanned());
    }
}

TEST_F(GuiKeys, EnterInTheFilterTextRefreshes) {
    auto* text = window->findChild<QComboBox*>("LMDcbFilterText");
    RemoveBehindTheWindow();
    text->lineEdit()->setFocus();
    QTest::keyClick(text->lineEdit(), Qt::Key_Return);
    EXPECT_TRUE(Rescanned());
}

TEST_F(GuiKeys, ABusyWindowRefusesKeysAsItRefusesClicks) {
    form->SetReady(false);
    RemoveBehindTheWindow();
    Press("LMDpfRefresh", Qt::Key_Space);
    Press("lvEmailList", Qt::Key_F5);
    EXPECT_EQ(List().model()->rowCount(), 3);
    EXPECT_EQ(form->LMDpfRefresh.BevelInner(), bvRaised) << "a refused press draws nothing";
}

TEST_F(GuiKeys, EscapeAndCtrlQCloseTheWindow) {
    for (const TKeyCase& c : {TKeyCase{"Escape", "lvEmailList", Qt::Key_Escape, {}},
                              TKeyCase{"Ctrl+Q", "LMDpfSearch", Qt::Key_Q, Qt::ControlModifier}}) {
        SCOPED_TRACE(c.name);
        form->SetVisible(true);
        window->show();
        Press(c.target, c.key, c.modifiers);
        EXPECT_FALSE(form->Visible());
    }
}

TEST_F(GuiKeys, TheListsKeysActAsTheMouseAndTheButtonsDo) {
    form->lvEmailList.SetSelected(1, true);
    Press("lvEmailList", Qt::Key_Return);
    EXPECT_EQ(AwaitFile(record),
              HelperProgram("argv_recorder") + "\n" + folder / "box/b.eml" + "\n")
        << "Enter opens the row as a double click does";

    dialogs.QueueAnswer("OK");
    Press("lvEmailList", Qt::Key_Delete);
    EXPECT_FALSE(PathExists(folder / "box/b.eml")) << "Delete deletes as the button does";

    Press("lvEmailList", Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(form->lvEmailList.SelCount(), form->lvEmailList.Count()) << "Ctrl+A selects all";
}

TEST_F(GuiKeys, MenuButtonsOpenTheirMenusFromTheKeyboard) {
    const struct {
        const char* target;
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        const char* menu;
    } cases[] = {
        {"LMDpfSubDelete", Qt::Key_Space, {}, "pmDelete"},
        {"LMDpfSubMailboxes", Qt::Key_Return, {}, "pmMailBoxes"},
        {"LMDpfDelete", Qt::Key_Down, Qt::AltModifier, "pmDelete"},
        {"LMDpfRunMail", Qt::Key_Down, Qt::AltModifier, "pmEmailers"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.target);
        dialogs.ClearTranscript();
        Press(c.target, c.key, c.modifiers);
        ASSERT_EQ(dialogs.Transcript().size(), 1u);
        EXPECT_NE(dialogs.Transcript()[0].Pos(c.menu), 0) << dialogs.Transcript()[0].c_str();
    }
}

TEST_F(GuiKeys, TheMenuKeyOpensTheRowsMenu) {
    form->lvEmailList.SetSelected(0, true);
    QStringList entries;
    QTimer::singleShot(50, [&] {
        if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
            for (const QAction* action : menu->actions())
                if (!action->isSeparator()) entries << action->text();
            menu->close();
        }
    });
    const QRect row = List().visualRect(List().model()->index(0, 0));
    QContextMenuEvent key(QContextMenuEvent::Keyboard, row.center(),
                          List().viewport()->mapToGlobal(row.center()));
    QApplication::sendEvent(List().viewport(), &key);
    EXPECT_EQ(
        entries.join('|'),
        "Run Mail|Run Mail with|Forward|Add to Master Priority List|Add to Mailbox Priority List|"
        "Add to Master Rejection List|Add to Mailbox Rejection List|Delete");
}

TEST_F(GuiKeys, F1IsTheHelpButton) {
    int clicks = 0;
    form->LMDpfHelp.OnClick = [&] { ++clicks; };
    Press("LMDcbFilterType", Qt::Key_F1);
    EXPECT_EQ(clicks, 1);
}

TEST_F(GuiKeys, TabVisitsEveryPanelButtonInRowOrder) {
    Widget("LMDcbFilterType")->setFocus();
    QStringList visited;
    for (int i = 0; i < 16; ++i) {
        visited << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(visited.join(' ').toStdString(),
              "LMDcbFilterType LMDcbFilterText lvEmailList LMDpfInbox LMDpfSubMailboxes "
              "LMDpfRunMail LMDpfSubEmailers LMDpfSend LMDpfRules LMDpfDelete LMDpfSubDelete "
              "LMDpfSearch LMDpfRefresh LMDpfHelp LMDpfClose LMDcbFilterType");
}

TEST_F(GuiKeys, EveryControlIsNamedAndDescribedForAssistiveTechnology) {
    for (auto* button : window->findChildren<TPanelButtonWidget*>()) {
        SCOPED_TRACE(button->objectName().toStdString());
        EXPECT_FALSE(button->accessibleName().isEmpty());
        EXPECT_FALSE(button->accessibleDescription().isEmpty());
    }
    EXPECT_EQ(Button("LMDpfSubDelete").accessibleName(), "Delete menu");
    for (const char* name : {"lvEmailList", "LMDcbFilterType", "LMDcbFilterText"}) {
        EXPECT_FALSE(Widget(name)->accessibleName().isEmpty()) << name;
        EXPECT_FALSE(Widget(name)->accessibleDescription().isEmpty()) << name;
    }
}

TEST(GuiHotKeys, ChoosesFreeLettersAndKeepsMarkedOnes) {
    const struct {
        QStringList captions;
        QString taken;
        QString expected; // one character per caption, '-' for none
    } cases[] = {
        {{" Browse", "Recorder", "Forward", "Rules"}, "FT", "BROU"},
        {{"Refresh", "Rules", "R"}, "", "RU-"},
        {{"Save", "&Send"}, "", "AS"},     // a marked letter is kept for its own caption
        {{"A&&B", "&&"}, "", "A-"},        // "&&" is an ampersand, not a mark
        {{"Close", "&Cancel"}, "C", "LA"}, // a label's letter wins over a mark
        {{"", "1st"}, "", "-1"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.captions.join('|').toStdString());
        QString got;
        for (const QChar key : ChooseHotKeys(c.captions, c.taken))
            got += key.isNull() ? QChar('-') : key;
        EXPECT_EQ(got, c.expected);
    }
}

TEST_F(GuiKeys, HotKeysFollowACaptionChangeWithoutClashes) {
    EXPECT_EQ(Button("LMDpfInbox").HotKey(), 'B');
    EXPECT_EQ(Button("LMDpfRunMail").HotKey(), 'R') << "the client's name, Recorder";
    EXPECT_EQ(Button("LMDpfRefresh").HotKey(), 'E');
    form->LMDpfRunMail.SetCaption("Mutt");
    EXPECT_EQ(Button("LMDpfRunMail").HotKey(), 'M');
    EXPECT_EQ(Button("LMDpfRules").HotKey(), 'R') << "R is free again";
    EXPECT_EQ(Button("LMDpfRefresh").HotKey(), 'E');
}

} // namespace
