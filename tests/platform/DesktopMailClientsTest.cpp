#include <chrono>
#include <gtest/gtest.h>
#include <thread>

#include "platform/linux/DesktopMailClients.h"
#include "settings/Globals.h"
#include "support/GlobalScope.h"
#include "support/TempFolder.h"
#include "support/XdgFixture.h"

namespace {

// GIO reads the desktop's entries once per process, so the whole story runs
// in one test: discovery, the default, the precedence rules, the start.
TEST(DesktopMailClients, ListsTheDesktopsClientsAndStartsThemWithThePath) {
    TTempFolder folder;
    const std::string record = folder / "argv.txt";
    const TXdgFixture desktop(folder.Path(), record);
    ASSERT_TRUE(desktop.Ready());

    TGlobalScope scope;
    CreateRegistry = CreateDesktopRegistry;
    TGlobals globals;
    CreateRegistry = nullptr;
    std::vector<std::string> clients(globals.MailClients.begin(), globals.MailClients.end());
    std::sort(clients.begin(), clients.end());
    EXPECT_EQ(clients, (std::vector<std::string>{"Lark Mail=lark-mail.desktop",
                                                 "Quill Reader=quill-reader.desktop"}))
        << "hidden, NoDisplay, TryExec-missing, empty-Exec and other types are left out; the data "
           "home "
           "wins over the system folder; the default turns the list around";

    const std::string message = folder.Write("box/a b \"$(x)\".eml", "From: x\r\n");
    globals.OpenInMailClient("Quill Reader", message);
    EXPECT_EQ(AwaitFile(record), HelperProgram("argv_recorder") + "\n" + message + "\n");
}

} // namespace
