#include <gtest/gtest.h>

#include "controls/Form.h"
#include "controls/PanelButton.h"
#include "controls/PopupMenu.h"
#include "platform/ScriptedDialogs.h"
#include "settings/Globals.h"
#include "settings/PanelButtons.h"
#include "support/GlobalScope.h"
#include "support/TempFolder.h"

namespace {

class PanelButtons : public ::testing::Test {
protected:
    TTempFolder folder;
    TGlobalScope scope;
    TScriptedDialogs dialogs;
    TPButtons buttons;
    TGlobals globals;
    TForm form{"Form"};
    TPanelButton button{&form, "LMDpfRunMail"};
    void SetUp() override {
        Dialogs = &dialogs;
        PButtons = &buttons;
        Globals = &globals;
        Application->HelpFile = AnsiString(folder.Write("QUILLPOST.HLP", "94=Choose a client\r\n"));
        button.SetCursor(crHandPoint);
        button.SetHeight(20);
    }
    void TearDown() override {
        Dialogs = nullptr;
        PButtons = nullptr;
        Globals = nullptr;
    }
    bool Pressed() const {
        return button.BevelInner() == bvLowered && button.BevelOuter() == bvLowered;
    }
};

TEST_F(PanelButtons, PressLowersAndReleaseRaisesWithOneLoopPassEach) {
    EXPECT_TRUE(buttons.ButtonPress(button));
    EXPECT_TRUE(Pressed());
    EXPECT_EQ(scope.App().ProcessMessagesCalls(), 1);
    EXPECT_FALSE(buttons.ButtonRelease(button));
    EXPECT_EQ(button.BevelInner(), bvRaised);
    EXPECT_EQ(button.BevelOuter(), bvRaised);
    EXPECT_EQ(scope.App().ProcessMessagesCalls(), 2);
}

TEST_F(PanelButtons, BusyCursorsRefuseWithoutALook) {
    for (const TCursor own : {crHourGlass, crNo}) {
        button.SetCursor(own);
        EXPECT_FALSE(buttons.ButtonPress(button)) << own;
        EXPECT_FALSE(buttons.MenuButtonPress(button, nullptr)) << own;
        EXPECT_FALSE(Pressed());
    }
    button.SetCursor(crHandPoint);
    scope.App().ScreenCursor = crHourGlass;
    EXPECT_FALSE(buttons.ButtonPress(button)) << "the screen's hourglass refuses every button";
    EXPECT_EQ(scope.App().ProcessMessagesCalls(), 0);
}

TEST_F(PanelButtons, HelpClickIsUsedUpOnce) {
    button.SetHelpContext(94);
    Application->DispatchMessage({TApplication::wmNcLButtonDown, TApplication::htHelp});
    EXPECT_TRUE(buttons.HelpMode);
    EXPECT_FALSE(buttons.ButtonPress(button));
    EXPECT_FALSE(Pressed());
    EXPECT_EQ(dialogs.Transcript(), std::vector<AnsiString>{"help: Choose a client"});
    EXPECT_TRUE(buttons.ButtonPress(button)) << "the next click works normally";
}

TEST_F(PanelButtons, HelpClickOnAButtonWithoutHelpIsStillUsedUp) {
    buttons.HelpMode = true;
    EXPECT_FALSE(buttons.ButtonPress(button));
    EXPECT_FALSE(buttons.HelpMode);
    EXPECT_TRUE(dialogs.Transcript().empty());
}

TEST_F(PanelButtons, MenuButtonOpensThePopupUnderItAndRestsHalfLowered) {
    TPopupMenu menu{&form, "pmEmailers"};
    auto& entry = menu.Items.Add(std::make_unique<TMenuItem>("Mail Client"));
    int clicks = 0;
    entry.OnClick = [&](TMenuItem&) { ++clicks; };
    dialogs.QueueAnswer("Mail Client");
    EXPECT_TRUE(buttons.MenuButtonPress(button, &menu));
    EXPECT_EQ(clicks, 1) << "the chosen entry's click runs in the loop pass after the menu";
    EXPECT_TRUE(Pressed());
    buttons.MenuButtonRelease(button);
    EXPECT_EQ(button.BevelInner(), bvRaised);
    EXPECT_EQ(button.BevelOuter(), bvLowered);
    EXPECT_EQ(dialogs.Transcript(),
              std::vector<AnsiString>{"menu pmEmailers [Mail Client] -> Mail Client"});
}

TEST_F(PanelButtons, AppHelpShowsContextPopupsUpTo1024) {
    bool callHelp = true;
    buttons.HelpMode = true;
    EXPECT_TRUE(globals.AppHelp(8, 94, callHelp));
    EXPECT_FALSE(callHelp);
    EXPECT_FALSE(buttons.HelpMode);
    EXPECT_EQ(dialogs.Transcript().size(), 1u);
    EXPECT_TRUE(globals.AppHelp(8, 1024, callHelp));
    EXPECT_FALSE(globals.AppHelp(8, 1025, callHelp));
    EXPECT_FALSE(globals.AppHelp(8, 0, callHelp));
    EXPECT_TRUE(globals.AppHelp(1, 5, callHelp));
    EXPECT_EQ(dialogs.Transcript().size(), 1u) << "1024 has no text; the others show nothing";
}

} // namespace
