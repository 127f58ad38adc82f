// The Find Text window's logic without a screen: its sizes at opening, and a
// Begin or Clear that arrives while the rows are being filled.

#include <gtest/gtest.h>

#include <cstring>

#include "inbox/InboxForm.h"
#include "platform/ScriptedDialogs.h"
#include "search/MailSearch.h"
#include "settings/Globals.h"
#include "support/EnvOverride.h"
#include "support/GlobalScope.h"
#include "support/TempFolder.h"

namespace {

class MailSearchForm : public ::testing::Test {
protected:
    TTempFolder folder;
    TEnvOverride env;
    TGlobalScope scope;
    TScriptedDialogs dialogs;
    std::unique_ptr<TInboxFrm> inbox;
    std::unique_ptr<TfrmMailSearch> search;

    void SetUp() override {
        env.Set("XDG_DATA_HOME", (folder / "data").c_str());
        Dialogs = &dialogs;
        folder.Write("box/a.eml", "Subject: one\r\ncat\r\ncat\r\ndog\r\n");
        folder.Write("box/b.eml", "Subject: two\r\ndog\r\n");
        inbox = std::make_unique<TInboxFrm>();
        inbox->MailboxFolder = AnsiString(folder / "box");
        search = std::make_unique<TfrmMailSearch>();
        frmMailSearch = search.get();
        search->OnSearch = [this](AnsiString text, bool cs, bool ww, unsigned short where) {
            return inbox->SearchMessages(std::move(text), cs, ww, where);
        };
        search->LMDrgWhere.SetItemIndex(1);
    }
    void TearDown() override {
        frmMailSearch = nullptr;
        search.reset();
        inbox.reset();
        Dialogs = nullptr;
    }
    std::vector<std::string> Captions() const {
        std::vector<std::string> out;
        for (int i = 0; i < search->lvSrchResult.Count(); ++i)
            out.push_back(search->lvSrchResult.Item(i).Caption.str());
        return out;
    }
};

TEST_F(MailSearchForm, OpeningSizesRunMailAndTheWindowByTheClientsName) {
    struct Case {
        std::string client;
        int runMail, window;
    };
    for (const Case& c : {Case{"", 85, 505}, Case{"Recorder Mail", 129, 549},
                          Case{std::string(40, 'n'), 372, 792}}) {
        std::memset(Globals->Config.Bytes.data(), 0, Globals->Config.Bytes.size());
        std::memcpy(Globals->Config.Bytes.data() + 395, c.client.data(), c.client.size());
        search->LMDcbSearchStr.SetText("left over");
        search->OpenSearch();
        EXPECT_EQ(search->LMDpfRunMail.Caption(), c.client);
        EXPECT_EQ(search->LMDpfRunMail.Width(), c.runMail) << c.client;
        EXPECT_EQ(search->Width(), c.window) << c.client;
        EXPECT_EQ(search->LMDcbSearchStr.Text(), "");
        EXPECT_EQ(search->LMDrgWhere.ItemIndex(), 0);
    }
}

TEST_F(MailSearchForm, ASearchStartedWhileRowsFillLeavesOnlyItsOwnRows) {
    search->LMDcbSearchStr.SetText("cat");
    // Arrives in the message loop that the filling of the first rows runs.
    scope.App().Post([this] {
        search->LMDcbSearchStr.SetText("dog");
        search->LMDpfBegin.Click();
    });
    search->LMDpfBegin.Click();
    EXPECT_EQ(Captions(), (std::vector<std::string>{"dog", "dog"}));
    EXPECT_EQ(search->SearchHits.Count(), 2);

    search->LMDcbSearchStr.SetText("cat");
    scope.App().Post([this] { search->LMDpfClear.Click(); });
    search->LMDpfBegin.Click();
    EXPECT_TRUE(Captions().empty()) << "a Clear during the filling leaves no rows";
}

} // namespace
