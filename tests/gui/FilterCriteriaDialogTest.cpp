#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QSpinBox>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QWhatsThis>
#include <cstring>
#include <functional>
#include <gtest/gtest.h>

#include "foundation/Utils.h"
#include "gui/FilterCriteriaDialog.h"
#include "gui/QtApplication.h"
#include "gui/QtDialogs.h"
#include "platform/ScriptedDialogs.h"
#include "rules/FilterCriteria.h"
#include "settings/Globals.h"
#include "settings/PanelButtons.h"
#include "support/TempFolder.h"

namespace {

// The Filter Editor on Qt's offscreen platform: EditRule opens the real
// dialog through the application's modal view, and the test acts on its
// widgets with mouse and keys while it is open.
class GuiFilterEditor : public ::testing::Test {
protected:
    TTempFolder folder;
    TQtApplication application;
    TScriptedDialogs dialogs;
    TUtils utils;
    TPButtons buttons;
    std::unique_ptr<TGlobals> globals;
    std::unique_ptr<TfrmFilterCriteria> form;

    void SetUp() override {
        Application = &application;
        Dialogs = &dialogs;
        Utils = &utils;
        PButtons = &buttons;
        utils.LogPath = AnsiString(folder / "Debug.txt");
        application.HelpFile =
            AnsiString(folder.Write("Help/QUILLPOST.HLP", "150=Forward help\r\n"));
        globals = std::make_unique<TGlobals>();
        Globals = globals.get();
        const std::string shared = folder.MakeFolder("shared");
        std::memcpy(globals->Config.Bytes.data() + ConfigRecord::sharedFolder, shared.data(),
                    shared.size());
        application.RegisterModalView("frmFilterCriteria", MakeFilterCriteriaDialog);
        form = std::make_unique<TfrmFilterCriteria>();
    }
    void TearDown() override {
        form.reset();
        Globals = nullptr;
        globals.reset();
        PButtons = nullptr;
        Utils = nullptr;
        Dialogs = nullptr;
        Application = nullptr;
    }
    // Opens the editor on the list and runs act on the dialog once it shows;
    // a dialog still open afterwards is closed by Escape.
    bool Edit(TStringList& list, const std::function<void(QDialog&)>& act) {
        QTimer::singleShot(0, [&] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!dialog) return;
            act(*dialog);
            if (dialog->isVisible()) QTest::keyClick(dialog, Qt::Key_Escape);
        });
        return form->EditRule(list);
    }
    template <typename W> static W& Find(QDialog& dialog, const char* name) {
        W* widget = dialog.findChild<W*>(name);
        EXPECT_NE(widget, nullptr) << name;
        return *widget;
    }
    static TStringList Rule(const char* text) {
        TStringList list;
        list.SetText(text);
        return list;
    }
};

TEST_F(GuiFilterEditor, ShowsTheModelAndEnterApplies) {
    TStringList list = Rule("\"A Name\" <box@isp>\r\nBig sale today\r\n");
    form->SetCaption("E-mail Priority");
    const bool applied = Edit(list, [](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QString::fromUtf8("E-mail Priority \u2014 Vellumdesk"));
        auto& tabs = Find<QTabWidget>(dialog, "PageControl1");
        ASSERT_EQ(tabs.count(), 3);
        EXPECT_EQ(tabs.tabText(0), "Criteria");
        EXPECT_EQ(tabs.tabText(2), "Options");
        EXPECT_EQ(Find<QComboBox>(dialog, "cbMailAddress").currentText(), "\"A Name\" <box@isp>");
        EXPECT_EQ(Find<QComboBox>(dialog, "cbMailSubject").count(), 7);
        EXPECT_EQ(Find<QComboBox>(dialog, "LMDcmbMailArrival").currentText(), "~NONE~");
        auto& size = Find<QSpinBox>(dialog, "LMDseMsgSize");
        EXPECT_EQ(size.value(), 120);
        EXPECT_EQ(size.maximum(), 200);
        EXPECT_FALSE(Find<QComboBox>(dialog, "LMDcbAltFolder").isEnabled());
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    EXPECT_TRUE(applied);
    EXPECT_EQ(
        list.GetText(),
        "\"A Name\" <box@isp>\r\nBig sale today\r\n~NONE~\r\n0\r\n0\r\n00120\r\n\r\n000\r\n\r\n");
}

TEST_F(GuiFilterEditor, APersonsClicksAndTypingReachTheRuleAndEscapeDropsIt) {
    for (bool apply : {true, false}) {
        TStringList list = Rule("box@isp\r\nHello\r\n");
        const bool applied = Edit(list, [&](QDialog& dialog) {
            auto& tabs = Find<QTabWidget>(dialog, "PageControl1");
            tabs.setCurrentIndex(1);
            QTest::mouseClick(&Find<QCheckBox>(dialog, "LMDcbForwardMsg"), Qt::LeftButton);
            auto& address = Find<QComboBox>(dialog, "cbFwdAddress");
            QTest::keyClicks(address.lineEdit(), "me@phone");
            tabs.setCurrentIndex(2);
            QTest::mouseClick(&Find<QCheckBox>(dialog, "LMDcbSaveAltFolder"), Qt::LeftButton);
            EXPECT_TRUE(Find<QComboBox>(dialog, "LMDcbAltFolder").isEnabled());
            QTest::keyClick(&dialog, apply ? Qt::Key_Enter : Qt::Key_Escape);
        });
        EXPECT_EQ(applied, apply);
        EXPECT_EQ(list.GetText(), apply ? "box@isp\r\nHello\r\n~NONE~\r\n0\r\n0\r\n10120\r\n"
                                          "me@phone\r\n001\r\n\r\n"
                                        : "box@isp\r\nHello\r\n");
    }
    EXPECT_EQ(ReadFileBytes(folder / "shared/AddressBook.ini"), "me@phone\r\n");
}

TEST_F(GuiFilterEditor, AMissingSubjectDisablesItsGroupOnScreen) {
    TStringList list = Rule("box@isp\r\n\r\n");
    Edit(list, [](QDialog& dialog) {
        EXPECT_FALSE(Find<QGroupBox>(dialog, "LMDgbSubjectEdit").isEnabled());
        EXPECT_FALSE(Find<QComboBox>(dialog, "cbMailSubject").isEnabled());
        EXPECT_TRUE(Find<QComboBox>(dialog, "cbMailAddress").isEnabled());
    });
}

TEST_F(GuiFilterEditor, HelpModeThenAClickShowsTheControlsHelp) {
    TStringList list = Rule("a\r\nb\r\n");
    Edit(list, [](QDialog& dialog) {
        Find<QTabWidget>(dialog, "PageControl1").setCurrentIndex(1);
        auto& box = Find<QCheckBox>(dialog, "LMDcbForwardMsg");
        QWhatsThis::enterWhatsThisMode(); // the title bar's "?"
        QTest::mouseClick(&box, Qt::LeftButton);
        EXPECT_FALSE(box.isChecked()); // the click was used up for help
        QTest::mouseClick(&box, Qt::LeftButton);
        EXPECT_TRUE(box.isChecked());
    });
    ASSERT_FALSE(dialogs.Transcript().empty());
    EXPECT_NE(dialogs.Transcript()[0].str().find("Forward help"), std::string::npos);
}

TEST(QtFileFilter, TurnsDescriptionPatternPairsIntoQtFilters) {
    EXPECT_EQ(QtFileFilter("*.wav|*.wav|All Files|*.*"), "*.wav (*.wav);;All Files (*)");
    EXPECT_EQ(QtFileFilter("Sounds|*.wav;*.ogg"), "Sounds (*.wav *.ogg)");
    EXPECT_EQ(QtFileFilter(""), "");
}

} // namespace
