// A modal dialog gets what every window of the program has: the program in
// its title, F1 for its Help button, Alt hot keys and the keyboard on its
// panel buttons, Escape as its window close, and a place on the screen.

#include <QScreen>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include "controls/PanelButton.h"
#include "gui/ModalDialog.h"
#include "gui/PanelButtonWidget.h"
#include "gui/QtApplication.h"

namespace {

class TButtonDialog : public TModalDialog {
public:
    TButtonDialog(TForm& form, TPanelButton& accept, TPanelButton& help)
        : TModalDialog(form), acceptWidget(accept, this), helpWidget(help, this) {
        helpWidget.move(100, 0);
        resize(3000, 3000); // larger than any screen
    }
    TPanelButtonWidget acceptWidget, helpWidget;
};

TEST(GuiDialogFrame, DialogsShareTheWindowKeysTitleAndFit) {
    TQtApplication application;
    TForm form("frmKeys");
    form.SetCaption("Forward Message");
    TPanelButton accept(&form, "LMDpfAccept"), help(&form, "LMDpfHelp");
    accept.SetCaption("Accept");
    help.SetCaption("Help");
    std::vector<std::string> clicks;
    accept.OnClick = [&] { clicks.push_back("accept"); };
    help.OnClick = [&] { clicks.push_back("help"); };
    form.OnWindowClose = [&] {
        clicks.push_back("window close");
        form.Close();
    };
    TButtonDialog* shown = nullptr;
    application.RegisterModalView("frmKeys", [&](TForm& f) {
        auto dialog = std::make_unique<TButtonDialog>(f, accept, help);
        shown = dialog.get();
        return dialog;
    });
    QString title;
    QRect geometry, screen;
    QTimer::singleShot(0, [&] {
        EXPECT_TRUE(QTest::qWaitForWindowActive(shown));
        title = shown->windowTitle();
        geometry = shown->frameGeometry();
        screen = shown->screen()->availableGeometry();
        QTest::keyClick(shown, Qt::Key_F1);
        QTest::keyClick(shown, Qt::Key_A, Qt::AltModifier);
        shown->helpWidget.setFocus();
        QTest::keyClick(&shown->helpWidget, Qt::Key_Space);
        QTest::keyClick(shown, Qt::Key_Escape);
    });
    form.ShowModal();
    EXPECT_EQ(title, QString::fromUtf8("Forward Message \u2014 Vellumdesk"));
    EXPECT_EQ(form.Caption(), "Forward Message");
    EXPECT_TRUE(screen.contains(geometry)) << "the dialog fits the screen";
    const std::vector<std::string> expected{"help", "accept", "help", "window close"};
    EXPECT_EQ(clicks, expected);
}

} // namespace
