#include <QCheckBox>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include "controls/CheckBox.h"
#include "controls/Memo.h"
#include "gui/CheckBoxBinding.h"
#include "gui/MemoBinding.h"
#include "gui/ModalDialog.h"
#include "gui/QtApplication.h"

namespace {

// A small dialog of two bound controls, as the program's dialogs are built.
class TTwoControlDialog : public TModalDialog {
public:
    TTwoControlDialog(TForm& form, TCheckBox& box, TMemo& memo)
        : TModalDialog(form), check(this), editor(this), checkBinding(box, check),
          memoBinding(memo, editor) {}
    QCheckBox check;
    QPlainTextEdit editor;
    TCheckBoxBinding checkBinding;
    TMemoBinding memoBinding;
};

TEST(ModalDialog, AShownFormRunsOnScreenUntilItsModelClosesIt) {
    TQtApplication application;
    TForm form("frmTwo");
    TCheckBox box(&form, "cbBox");
    TMemo memo(&form, "mNote");
    TTwoControlDialog* shown = nullptr;
    application.RegisterModalView("frmTwo", [&](TForm& f) {
        auto dialog = std::make_unique<TTwoControlDialog>(f, box, memo);
        shown = dialog.get();
        return dialog;
    });
    bool clicked = false;
    box.OnClick = [&] { clicked = true; };
    QTimer::singleShot(0, [&] {
        QTest::mouseClick(&shown->check, Qt::LeftButton);
        QTest::keyClicks(&shown->editor, "one");
        QTest::keyClick(&shown->editor, Qt::Key_Return);
        QTest::keyClicks(&shown->editor, "two");
        form.ModalResult = TModalResult::mrOk;
        form.Close();
    });
    EXPECT_EQ(form.ShowModal(), TModalResult::mrOk);
    EXPECT_TRUE(clicked);
    EXPECT_TRUE(box.Checked());
    ASSERT_EQ(memo.Lines().Count(), 2);
    EXPECT_EQ(memo.Lines()[1], AnsiString("two"));
    EXPECT_EQ(form.ActiveControl(), &memo);
}

TEST(ModalDialog, EscapeGoesToTheFormsWindowCloseWhichMayRefuse) {
    TQtApplication application;
    TForm form("frmRefuses");
    TCheckBox box(&form, "cbBox");
    TMemo memo(&form, "mNote");
    TTwoControlDialog* shown = nullptr;
    application.RegisterModalView("frmRefuses", [&](TForm& f) {
        auto dialog = std::make_unique<TTwoControlDialog>(f, box, memo);
        shown = dialog.get();
        return dialog;
    });
    int refusals = 0;
    form.OnWindowClose = [&] {
        if (++refusals == 2) form.Close();
    };
    QTimer::singleShot(0, [&] {
        QTest::keyClick(shown, Qt::Key_Escape);
        EXPECT_TRUE(shown->isVisible());
        QTest::keyClick(shown, Qt::Key_Escape);
    });
    EXPECT_EQ(form.ShowModal(), TModalResult::mrCancel);
    EXPECT_EQ(refusals, 2);
}

} // namespace
