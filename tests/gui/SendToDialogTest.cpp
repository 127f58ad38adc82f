// The Send To dialog on Qt's offscreen platform: its widgets follow the
// controls of TfrmSendTo, and a person's typing reaches them.

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>
#include <gtest/gtest.h>

#include "forwarding/SendToForm.h"
#include "gui/PanelButtonWidget.h"
#include "gui/QtApplication.h"
#include "gui/SendToDialog.h"
#include "support/GlobalScope.h"

namespace {

class SendToDialogTest : public ::testing::Test {
protected:
    TQtApplication application;
    TUtils utils;
    TfrmSendTo form;

    void SetUp() override {
        Application = &application;
        Utils = &utils;
    }
    void TearDown() override {
        Utils = nullptr;
        Application = nullptr;
    }
    template <typename Widget> Widget& Find(QDialog& dialog, const char* name) {
        Widget* widget = dialog.findChild<Widget*>(name);
        if (!widget) throw std::runtime_error(name);
        return *widget;
    }
};

TEST_F(SendToDialogTest, WidgetsShowTheControlsAndTypingReachesThem) {
    form.LMDcbSendTo.SetText("bob@example.org");
    form.LMDeSubject.SetText("Last subject");
    const std::unique_ptr<TModalDialog> dialog = TSendToDialog::Create(form);
    EXPECT_EQ(dialog->windowTitle(), QString::fromUtf8("Send To \u2014 Vellumdesk"));
    EXPECT_EQ(Find<QLabel>(*dialog, "LMDPanelFill2").text(), "Forward Message");
    EXPECT_EQ(Find<QComboBox>(*dialog, "LMDcbSendTo").currentText(), "bob@example.org");
    EXPECT_EQ(Find<QLineEdit>(*dialog, "LMDeSubject").text(), "Last subject");

    QTest::keyClicks(&Find<QLineEdit>(*dialog, "LMDeSubject"), "!");
    EXPECT_EQ(form.LMDeSubject.Text(), "Last subject!");
    Find<QPlainTextEdit>(*dialog, "mMsgBody").setPlainText("one\ntwo");
    EXPECT_EQ(form.mMsgBody.Lines().Count(), 2);
    EXPECT_EQ(form.mMsgBody.Lines()[1], "two");
}

TEST_F(SendToDialogTest, SendShowsTheHourglassWhileTheModelHasIt) {
    const std::unique_ptr<TModalDialog> dialog = TSendToDialog::Create(form);
    auto& send = Find<TPanelButtonWidget>(*dialog, "LMDpfSend");
    EXPECT_EQ(send.cursor().shape(), Qt::PointingHandCursor);
    form.LMDpfSend.SetCursor(crHourGlass);
    EXPECT_EQ(send.cursor().shape(), Qt::WaitCursor);
    EXPECT_EQ(Find<TPanelButtonWidget>(*dialog, "LMDpfCancel").cursor().shape(),
              Qt::PointingHandCursor);
}

TEST_F(SendToDialogTest, EscapeClosesTheFormThroughItsWindowClose) {
    form.SetVisible(true);
    const std::unique_ptr<TModalDialog> dialog = TSendToDialog::Create(form);
    dialog->show();
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_FALSE(form.Visible());
}

} // namespace
