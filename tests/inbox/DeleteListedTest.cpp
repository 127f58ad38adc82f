#include <filesystem>
#include <gtest/gtest.h>

#include "inbox/InboxForm.h"
#include "platform/ScriptedDialogs.h"
#include "support/GlobalScope.h"
#include "support/TempFolder.h"

namespace {

namespace fs = std::filesystem;

// What happens to the folder between the scan and the deletion.
enum class TSwap { Nothing, FolderBecomesALink, FileReplaced };

struct TCase {
    const char* name;
    TSwap swap;
    bool listedFileGone;  // the file that was read and listed
    bool otherFileIntact; // the file now in its place, or in the linked folder
};

void PrintTo(const TCase& c, std::ostream* os) {
    *os << c.name;
}

class DeleteListed : public ::testing::TestWithParam<TCase> {};

TEST_P(DeleteListed, DeletionActsOnlyOnTheFileThatWasListed) {
    const TCase c = GetParam();
    TTempFolder folder;
    TGlobalScope scope;
    TScriptedDialogs dialogs;
    Dialogs = &dialogs;
    const std::string box = folder / "box";
    folder.Write("box/a.eml", "From: listed\r\n");
    folder.Write("other/a.eml", "From: never listed\r\n");
    TInboxFrm inbox;
    inbox.MailboxFolder = AnsiString(box);
    inbox.ScanMessages();
    ASSERT_EQ(inbox.lvEmailList.Count(), 1);

    std::string listed = box + "/a.eml", other = folder / "other/a.eml";
    if (c.swap == TSwap::FolderBecomesALink) {
        fs::rename(box, folder / "box.old");
        fs::create_directory_symlink(folder / "other", box);
        listed = folder / "box.old/a.eml";
    } else if (c.swap == TSwap::FileReplaced) {
        fs::rename(other, folder / "box/a.eml.new");
        fs::rename(folder / "box/a.eml.new", listed);
        other = listed;
    }
    dialogs.QueueAnswer("OK");
    inbox.DeleteMessages(true);
    Dialogs = nullptr;
    if (c.swap != TSwap::FileReplaced) {
        EXPECT_EQ(!fs::exists(listed), c.listedFileGone) << c.name;
    }
    EXPECT_EQ(fs::exists(other), c.otherFileIntact) << c.name;
}

INSTANTIATE_TEST_SUITE_P(
    Swaps, DeleteListed,
    ::testing::Values(TCase{"unchanged", TSwap::Nothing, true, true},
                      TCase{"folder swapped for a link", TSwap::FolderBecomesALink, true, true},
                      TCase{"file replaced", TSwap::FileReplaced, false, true}),
    [](const auto& info) { return std::to_string(info.index); });

} // namespace
