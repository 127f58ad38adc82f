#pragma once
// The main window on Qt's offscreen platform over a small mailbox on disk,
// shared by the GUI tests.

#include <QLabel>
#include <QTest>
#include <QTreeView>
#include <gtest/gtest.h>
#include <memory>

#include "gui/InboxWindow.h"
#include "gui/PanelButtonWidget.h"
#include "gui/QtApplication.h"
#include "inbox/InboxForm.h"
#include "platform/ScriptedDialogs.h"
#include "platform/linux/LinuxShell.h"
#include "support/EnvOverride.h"
#include "support/GlobalScope.h"
#include "support/NextRegistry.h"
#include "support/TempFolder.h"

// The real window on Qt's offscreen platform, over a mailbox on disk and a
// recording mail client; dialogs are answered by the test.
class GuiWindow : public ::testing::Test {
protected:
    TTempFolder folder;
    TEnvOverride env;
    TQtApplication application;
    TScriptedDialogs dialogs;
    TNextRegistry next;
    TLinuxShell shell;
    std::unique_ptr<TInboxFrm> form;
    std::unique_ptr<TInboxWindow> window;
    std::string record = folder / "argv.txt";

    void SetUp() override {
        env.Set("XDG_DATA_HOME", (folder / "data").c_str());
        env.Set("ARGV_RECORD_FILE", record.c_str());
        application.ExeName = AnsiString(folder / "bin/vellumdesk");
        application.HelpFile = "Help/QUILLPOST.HLP";
        // The help texts where the window looks for them once it is active.
        folder.Write("Help/QUILLPOST.HLP",
                     ReadFileBytes(std::string(VD_SOURCE_DIR) + "/Help/QUILLPOST.HLP"));
        Application = &application;
        Dialogs = &dialogs;
        Shell = &shell;
        folder.Write("bin/vellumdesk.ini", folder / "box" + "\r\nSam\r\n");
        folder.Write(
            "box/a.eml",
            "From: carol\r\nSubject: c\r\nDate: Mon, 5 Jan 2003 10:00:00 +0000\r\n\r\nx\r\n");
        folder.Write(
            "box/b.eml",
            "From: alice\r\nSubject: a\r\nDate: Tue, 4 Feb 2003 10:00:00 +0000\r\n\r\nxx\r\n");
        folder.Write(
            "box/c.eml",
            "From: bob\r\nSubject: b\r\nDate: Tue, 4 Mar 2003 10:00:00 +0000\r\n\r\nxxx\r\n");
        std::string config(1024, '\0');
        config.replace(395, 8, "Recorder");
        folder.Write("data/Quillpost Users/Config.cfg", config);
        const AnsiString base = "Software\\Clients\\Mail";
        next.Tree().SetString(base, "", "rec");
        next.Tree().SetString(base + "\\rec", "", "Recorder");
        next.Tree().SetString(base + "\\rec\\shell\\open\\command", "",
                              "\"" + HelperProgram("argv_recorder") + "\"");
        form = std::make_unique<TInboxFrm>();
        window = std::make_unique<TInboxWindow>(*form);
        window->show();
        ASSERT_TRUE(QTest::qWaitFor([&] { return form->lvEmailList.Count() == 3; }, 5000));
    }
    void TearDown() override {
        window.reset();
        form.reset();
        Shell = nullptr;
        Dialogs = nullptr;
        Application = nullptr;
    }
    QTreeView& List() { return *window->findChild<QTreeView*>("lvEmailList"); }
    TPanelButtonWidget& Button(const char* name) {
        return *window->findChild<TPanelButtonWidget*>(name);
    }
    QString Cell(int row, int column) {
        return List().model()->index(row, column).data().toString();
    }
    QString Status() { return window->findChild<QLabel*>("LMDpfStatusBar")->text(); }
};
