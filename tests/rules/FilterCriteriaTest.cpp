#include <filesystem>

#include "RulesFixture.h"
#include "platform/ReportingSound.h"
#include "platform/ScriptedDialogs.h"
#include "rules/FilterCriteria.h"
#include "settings/PanelButtons.h"

namespace {

namespace fs = std::filesystem;

// The editor with its global objects; each test acts on the open dialog in
// the modal loop, as a person would, and closes it.
class FilterEditor : public RulesFixture {
protected:
    TPButtons buttons;
    TScriptedDialogs dialogs;
    std::vector<std::string> played;
    TReportingSound sound{nullptr};
    TfrmFilterCriteria editor;

    FilterEditor() {
        Globals = &globals;
        PButtons = &buttons;
        Dialogs = &dialogs;
        Sound = &sound;
        sound.OnPlay = [this](const AnsiString& path) { played.push_back(path.str()); };
    }
    ~FilterEditor() override {
        Sound = nullptr;
        Dialogs = nullptr;
        PButtons = nullptr;
        Globals = nullptr;
    }
    // Runs EditRule on list with act as the person at the dialog.
    bool Edit(TStringList& list, const std::function<void(TfrmFilterCriteria&)>& act) {
        scope.App().ModalLoop = [&](TForm&) {
            act(editor);
            if (editor.Visible()) editor.WindowClose();
        };
        return editor.EditRule(list);
    }
    static TStringList Parameters(const char* text) {
        TStringList list;
        list.SetText(text);
        return list;
    }
    std::string Shared(const char* name) const { return ReadFileBytes(shared + "/" + name); }
};

TEST_F(FilterEditor, ApplyGivesTheNineFieldsOfWhatTheControlsShow) {
    struct Case {
        const char* in;
        const char* out;
    } cases[] = {
        // From the rule command: defaults.
        {"\"A Name\" <box@isp>\r\nBig sale today\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n",
         "\"A Name\" <box@isp>\r\nBig sale today\r\n~NONE~\r\n0\r\n0\r\n00120\r\n\r\n000\r\n\r\n"},
        // A full list comes back as it went in.
        {"a@b\r\ns\r\n~NONE~\r\n1\r\n1\r\n11060\r\nf@g\r\n101\r\n/keep\r\n",
         "a@b\r\ns\r\n~NONE~\r\n1\r\n1\r\n11060\r\nf@g\r\n101\r\n/keep\r\n"},
        // Numbers that make no sense give the defaults; a size beyond the
        // limits is held at the limit.
        {"a\r\ns\r\nGONE\r\nx\r\n7\r\n1x999\r\n\r\n1\r\n\r\n",
         "a\r\ns\r\n~NONE~\r\n0\r\n0\r\n10200\r\n\r\n100\r\n\r\n"},
        {"a\r\ns\r\n\r\n\r\n\r\n00000\r\n\r\n\r\n\r\n",
         "a\r\ns\r\n~NONE~\r\n0\r\n0\r\n00001\r\n\r\n000\r\n\r\n"},
        // Short lines and a short list give the defaults of what is missing.
        {"a\r\n", "a\r\n\r\n~NONE~\r\n0\r\n0\r\n00120\r\n\r\n000\r\n\r\n"},
    };
    for (const Case& c : cases) {
        TStringList list = Parameters(c.in);
        EXPECT_TRUE(Edit(list, [](TfrmFilterCriteria& f) { f.LMDpfAccept.Click(); })) << c.in;
        EXPECT_EQ(list.GetText(), c.out) << c.in;
    }
}

TEST_F(FilterEditor, LeavingWithoutApplyChangesNothingAndWritesNothing) {
    const char* in = "a@b\r\ns\r\n\r\n\r\n\r\n\r\n\r\n\r\n\r\n";
    const std::function<void(TfrmFilterCriteria&)> leaves[] = {
        [](TfrmFilterCriteria& f) { f.LMDpfCancel.Click(); },
        [](TfrmFilterCriteria& f) { f.WindowClose(); },
        [](TfrmFilterCriteria&) {},
    };
    for (const auto& leave : leaves) {
        TStringList list = Parameters(in);
        const bool applied = Edit(list, [&](TfrmFilterCriteria& f) {
            f.cbFwdAddress.UserType("typed@example.org");
            f.LMDcbAltFolder.SetEnabled(true);
            f.LMDcbAltFolder.UserType("/typed");
            leave(f);
        });
        EXPECT_FALSE(applied);
        EXPECT_EQ(list.GetText(), in);
    }
    EXPECT_EQ(Shared("AddressBook.ini"), "");
    EXPECT_EQ(Shared("AltPath.ini"), "");
    EXPECT_FALSE(PathExists(shared + "/mPriorityMail.ini"));
}

TEST_F(FilterEditor, MatchByFollowsTheTextsThatCameIn) {
    struct Case {
        const char* in;
        int matchBy;
        bool addressGroup, subjectGroup;
        bool refused;
    } cases[] = {
        {"a@b\r\ns\r\n", 0, true, true, false},
        {"a@b\r\n\r\n", 1, true, false, false},
        {"\r\ns\r\n", 2, false, true, false},
        {"\r\n\r\n", 1, false, false, true},
    };
    for (const Case& c : cases) {
        TStringList list = Parameters(c.in);
        dialogs.ClearTranscript();
        const bool applied = Edit(list, [&](TfrmFilterCriteria& f) {
            EXPECT_EQ(f.LMDrgMatchBy.ItemIndex(), c.matchBy) << c.in;
            EXPECT_EQ(f.LMDgbAddressEdit.Enabled(), c.addressGroup) << c.in;
            EXPECT_EQ(f.LMDgbSubjectEdit.Enabled(), c.subjectGroup) << c.in;
            f.LMDrgMatchBy.UserPick(0); // "Both" brings no disabled text back
            f.LMDpfAccept.Click();
            EXPECT_EQ(f.Visible(), c.refused) << c.in;
        });
        EXPECT_EQ(applied, !c.refused) << c.in;
        EXPECT_EQ(!dialogs.Transcript().empty(), c.refused) << c.in;
    }
}

TEST_F(FilterEditor, QuickEditsAndMatchBySetTheTexts) {
    TStringList list = Parameters("\"A Name\" <box@isp>\r\nBig sale today\r\n");
    Edit(list, [](TfrmFilterCriteria& f) {
        struct Step {
            TComboBox* tools;
            int pick;
            TComboBox* text;
            const char* shown;
        } steps[] = {
            {&f.cbAddressTools, 3, &f.cbMailAddress, "A Name"},
            {&f.cbAddressTools, 4, &f.cbMailAddress, "box"},
            {&f.cbAddressTools, 5, &f.cbMailAddress, "isp"},
            {&f.cbAddressTools, 0, &f.cbMailAddress, "isp"},
            {&f.cbAddressTools, 2, &f.cbMailAddress, ""},
            {&f.cbAddressTools, 1, &f.cbMailAddress, "\"A Name\" <box@isp>"},
            {&f.cbSubjectTools, 2, &f.cbMailSubject, ""},
            {&f.cbSubjectTools, 1, &f.cbMailSubject, "Big sale today"},
        };
        for (const Step& step : steps) {
            step.tools->UserPick(step.pick);
            EXPECT_EQ(step.text->Text(), step.shown) << step.pick;
        }
        f.LMDrgMatchBy.UserPick(2);
        EXPECT_FALSE(f.cbMailAddress.Enabled());
        EXPECT_EQ(f.cbMailAddress.Text(), "");
        f.LMDrgMatchBy.UserPick(0);
        EXPECT_EQ(f.cbMailAddress.Text(), "\"A Name\" <box@isp>");
        f.LMDpfCancel.Click();
    });
}

TEST_F(FilterEditor, TheWindowWidensForLongTexts) {
    for (auto [length, width] : {std::pair{0, 318}, {37, 318}, {38, 336}, {60, 512}}) {
        TStringList list = Parameters((std::string(length, 'a') + "\r\ns\r\n").c_str());
        Edit(list, [](TfrmFilterCriteria&) {});
        EXPECT_EQ(editor.Width(), width) << length;
        EXPECT_EQ(editor.PageControl1.TabWidth(), (width - 8 - 15) / 3) << length;
    }
}

TEST_F(FilterEditor, HistoriesGrowOnApplyByFirstUseAndIgnoreCase) {
    const char* typed[] = {"one@example.org", "two@example.org", "ONE@example.org", ""};
    for (const char* address : typed) {
        TStringList list = Parameters("a\r\ns\r\n");
        Edit(list, [&](TfrmFilterCriteria& f) {
            f.cbFwdAddress.UserType(address);
            f.LMDpfAccept.Click();
        });
    }
    EXPECT_EQ(Shared("AddressBook.ini"), "one@example.org\r\ntwo@example.org\r\n");
    TStringList list = Parameters("a\r\ns\r\n");
    Edit(list, [](TfrmFilterCriteria& f) {
        EXPECT_EQ(f.cbFwdAddress.Items().Count(), 2);
        EXPECT_EQ(f.cbFwdAddress.Text(), ""); // loading items leaves the text alone
        f.LMDpfCancel.Click();
    });
}

TEST_F(FilterEditor, DeleteRemovesTheEntryOfTheFocusedHistoryForGood) {
    TTempFolder::WriteTo(shared + "/AltPath.ini", "/a\r\n/b\r\n");
    TTempFolder::WriteTo(shared + "/AddressBook.ini", "x@y\r\n");
    TStringList list = Parameters("a\r\ns\r\n\r\n\r\n\r\n\r\n\r\n001\r\n/b\r\n");
    Edit(list, [&](TfrmFilterCriteria& f) {
        f.SetActiveControl(&f.LMDcbAltFolder); // where the right button was pressed
        dialogs.QueueAnswer("Delete");
        f.pmManage.Popup({});
        scope.App().ProcessMessages();
        EXPECT_EQ(f.ManageMode, 2);
        EXPECT_EQ(f.LMDcbAltFolder.Text(), "");
        EXPECT_EQ(f.LMDcbAltFolder.Items().GetText(), "/a\r\n");
        // Not an entry: the text empties all the same, the file stays.
        f.SetActiveControl(&f.cbFwdAddress);
        f.cbFwdAddress.UserType("not@listed");
        dialogs.QueueAnswer("Delete");
        f.pmManage.Popup({});
        scope.App().ProcessMessages();
        EXPECT_EQ(f.ManageMode, 1);
        EXPECT_EQ(f.cbFwdAddress.Text(), "");
        // An empty text disables Delete.
        dialogs.QueueAnswer("Delete");
        f.pmManage.Popup({});
        EXPECT_FALSE(f.Delete1->Enabled);
        f.LMDpfCancel.Click();
    });
    EXPECT_EQ(Shared("AltPath.ini"), "/a\r\n");
    EXPECT_EQ(Shared("AddressBook.ini"), "x@y\r\n");
}

TEST_F(FilterEditor, AHistoryFileThatCannotBeWrittenKeepsTheDialogOpen) {
    fs::create_directory(shared + "/AddressBook.ini");
    TStringList list = Parameters("a\r\ns\r\n");
    bool raised = false;
    const bool applied = Edit(list, [&](TfrmFilterCriteria& f) {
        f.cbFwdAddress.UserType("x@y");
        try {
            f.LMDpfAccept.Click();
        } catch (const Exception&) {
            raised = true;
        }
        EXPECT_TRUE(f.Visible());
        EXPECT_EQ(f.LMDpfAccept.BevelInner(), bvRaised);
        f.LMDpfCancel.Click();
    });
    EXPECT_TRUE(raised);
    EXPECT_FALSE(applied);
    EXPECT_TRUE(fs::is_directory(shared + "/AddressBook.ini"));
}

TEST_F(FilterEditor, AnAlertIsChosenNamedAndAuditioned) {
    const std::string bell = folder.Write("My Sounds/Door Bell.wav", "RIFF");
    const std::string text = folder.Write("My Sounds/notes.txt", "x");
    TStringList list = Parameters("a\r\ns\r\n");
    Edit(list, [&](TfrmFilterCriteria& f) {
        EXPECT_EQ(f.LMDcmbMailArrival.Text(), "~NONE~");
        f.sbAuditionAlert.Click(); // no sound
        dialogs.QueueAnswer(AnsiString(bell));
        EXPECT_TRUE(f.BrowseForAlert(f.LMDcmbMailArrival));
        EXPECT_EQ(f.LMDcmbMailArrival.Text(), "DOOR BELL");
        EXPECT_EQ(f.LMDcmbMailArrival.Hint(), "DOOR BELL");
        f.sbAuditionAlert.Click();
        dialogs.QueueAnswer(AnsiString(text));
        EXPECT_TRUE(f.BrowseForAlert(f.LMDcmbMailArrival));
        EXPECT_EQ(f.LMDcmbMailArrival.Text(), "~NONE~");
        dialogs.QueueAnswer("cancel");
        EXPECT_FALSE(f.BrowseForAlert(f.LMDcmbMailArrival));
        f.LMDcmbMailArrival.UserPick(1);
        f.LMDpfAccept.Click();
    });
    EXPECT_EQ(played, std::vector<std::string>{bell});
    EXPECT_EQ(list[2], "DOOR BELL");
    // The next opening starts on the rule's alert by name.
    Edit(list, [](TfrmFilterCriteria& f) { EXPECT_EQ(f.LMDcmbMailArrival.ItemIndex(), 1); });
}

} // namespace
