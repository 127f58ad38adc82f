#include <gtest/gtest.h>

#include <string>

#include "controls/CheckBox.h"
#include "controls/Form.h"
#include "controls/Memo.h"
#include "controls/PageControl.h"
#include "controls/Panel.h"
#include "controls/RadioGroup.h"
#include "controls/SpinEdit.h"
#include "platform/HeadlessApplication.h"

namespace {

TEST(Form, ShowModalRunsTheLoopUntilTheFormIsHiddenAndReturnsItsResult) {
    THeadlessApplication application;
    TForm dialog("frmDialog");
    std::string seen;
    dialog.OnShow = [&] { seen += "show;"; };
    application.ModalLoop = [&](TForm& form) {
        seen += "loop:" + form.Name() + (TForm::TopModalForm() == &form ? ":top;" : ";");
        form.ModalResult = TModalResult::mrOk;
        form.Close();
    };
    EXPECT_EQ(dialog.ShowModal(), TModalResult::mrOk);
    EXPECT_EQ(seen, "show;loop:frmDialog:top;");
    EXPECT_FALSE(dialog.Visible());
    EXPECT_EQ(TForm::TopModalForm(), nullptr);
}

TEST(Form, ALoopThatLeavesTheFormOpenEndsInTheWindowClose) {
    THeadlessApplication application;
    TForm dialog("frmDialog");
    int windowCloses = 0;
    dialog.OnWindowClose = [&] {
        ++windowCloses;
        dialog.Close();
    };
    application.ModalLoop = [](TForm&) {};
    EXPECT_EQ(dialog.ShowModal(), TModalResult::mrCancel);
    EXPECT_EQ(windowCloses, 1);
    // Without a loop at all the person is taken to have closed it at once.
    application.ModalLoop = nullptr;
    dialog.ShowModal();
    EXPECT_EQ(windowCloses, 2);
}

TEST(Form, ModalFormsStackAndAreFoundByNameWhileTheyLive) {
    THeadlessApplication application;
    TForm outer("frmOuter");
    {
        TForm inner("frmInner");
        EXPECT_EQ(TForm::FindForm("frmInner"), &inner);
        std::string order;
        application.ModalLoop = [&](TForm& form) {
            order += form.Name() + ":" + TForm::TopModalForm()->Name() + ";";
            if (&form == &outer) inner.ShowModal();
            form.Close();
        };
        outer.ShowModal();
        EXPECT_EQ(order, "frmOuter:frmOuter;frmInner:frmInner;");
    }
    EXPECT_EQ(TForm::FindForm("frmInner"), nullptr);
    EXPECT_EQ(TForm::FindForm("frmOuter"), &outer);
}

TEST(ControlModels, APersonCannotActOnAControlInADisabledGroup) {
    TForm form("frmGroups");
    TPanel group(&form, "gbGroup");
    TCheckBox box(&form, "cbBox");
    TRadioGroup radios(&form, "rgRadios");
    TStringList items;
    items.Add("One");
    items.Add("Two");
    radios.SetItems(items);
    box.SetParent(&group);
    radios.SetParent(&group);
    group.SetEnabled(false);
    box.UserClick();
    radios.UserPick(1);
    EXPECT_FALSE(box.Checked());
    EXPECT_EQ(radios.ItemIndex(), -1);
    EXPECT_TRUE(box.Enabled()); // its own property is untouched
    group.SetEnabled(true);
    box.UserClick();
    radios.UserPick(1);
    EXPECT_TRUE(box.Checked());
    EXPECT_EQ(radios.ItemIndex(), 1);
}

TEST(ControlModels, EventsRunForAPersonsActionsOnlyAndInTheirOrder) {
    TForm form("frmEvents");
    TRadioGroup radios(&form, "rgRadios");
    TStringList items;
    items.Add("A");
    items.Add("B");
    radios.SetItems(items);
    std::string events;
    radios.OnChange = [&] { events += "change;"; };
    radios.OnClick = [&] { events += "click;"; };
    radios.SetItemIndex(0);
    radios.UserPick(1);
    radios.UserPick(1);
    EXPECT_EQ(events, "change;click;click;");

    TSpinEdit spin(&form, "seSpin");
    spin.MaxValue = 300;
    spin.SetValue(120);
    spin.UserType(AnsiString("abc"));
    EXPECT_EQ(spin.Value(), 120);
    spin.UserType(AnsiString(" 250 "));
    EXPECT_EQ(spin.Value(), 250);

    TMemo memo(&form, "mMemo");
    memo.UserType("first\r\nsecond\nthird");
    ASSERT_EQ(memo.Lines().Count(), 3);
    EXPECT_EQ(memo.Lines()[1], AnsiString("second"));

    TPageControl pages(&form, "PageControl1");
    TTabSheet one(&form, "tsOne"), two(&form, "tsTwo");
    pages.AddPage(one);
    pages.AddPage(two);
    EXPECT_EQ(pages.ActivePageIndex(), 0);
    pages.UserPick(1);
    EXPECT_EQ(pages.ActivePageIndex(), 1);
    EXPECT_EQ(one.Parent(), &pages);
}

} // namespace
