#include <gtest/gtest.h>

#include "inbox/InboxForm.h"
#include "platform/ScriptedDialogs.h"
#include "settings/Globals.h"
#include "support/GlobalScope.h"

namespace {

const AnsiString shippedHelp = AnsiString(VD_SOURCE_DIR) + "/Help/QUILLPOST.HLP";

// A help click on a control whose context has no line in the shipped file
// shows nothing at all, which looks like a dead button.
TEST(HelpTexts, EveryHelpContextOfTheMainWindowHasAText) {
    TGlobalScope scope;
    TScriptedDialogs dialogs;
    Dialogs = &dialogs;
    TInboxFrm inbox;
    Application->HelpFile = shippedHelp;
    int contexts = 0;
    for (const auto& [name, control] : inbox.Components()) {
        const int context = control->HelpContext();
        if (context <= 0) continue;
        ++contexts;
        dialogs.ClearTranscript();
        Globals->ShowContextHelp(context);
        ASSERT_EQ(dialogs.Transcript().size(), 1u) << name << " has context " << context;
        EXPECT_GT(dialogs.Transcript()[0].Length(), 12) << name;
    }
    Dialogs = nullptr;
    EXPECT_GE(contexts, 10) << "the window's controls carry their help contexts";
}

TEST(HelpTexts, ShippedFileIsPlainContextLines) {
    TStringList help;
    help.LoadFromFile(shippedHelp);
    ASSERT_GT(help.Count(), 0);
    for (const AnsiString& line : help) {
        const AnsiString name = line.SubString(1, line.Pos("=") - 1);
        ASSERT_FALSE(name.IsEmpty()) << line.c_str();
        EXPECT_GT(name.ToIntDef(0), 0) << line.c_str();
        EXPECT_LE(name.ToIntDef(0), 1024) << "the help hook ignores contexts above 1024";
    }
}

} // namespace
