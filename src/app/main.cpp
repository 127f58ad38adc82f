// vellumdesk: the desktop program. One instance at a time; the lock is taken
// before Qt exists, so a second start builds no screen at all: it only asks
// the running instance to bring its window to the front, and ends.
//
// With VELLUMDESK_SCREENSHOT=file.png the program saves a picture of its main
// window once the first scan is on the screen, and ends: that is how the demo
// shows itself on a machine without a display.
//
// With VELLUMDESK_SCAN_TIMINGS=1 it prints how its first scan went on the
// screen (ScanTimings.h) and ends: that is how the benchmark times the window.

#include <QApplication>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "app/CommandLine.h"
#include "gui/FilterCriteriaDialog.h"
#include "gui/InboxWindow.h"
#include "gui/MailSearchDialog.h"
#include "gui/QtApplication.h"
#include "gui/QtDialogs.h"
#include "gui/RaiseChannel.h"
#include "gui/ScanTimings.h"
#include "gui/SendToDialog.h"
#include "inbox/InboxForm.h"
#include "inbox/ProgramEntry.h"
#include "platform/Dialogs.h"
#include "platform/ProgramPath.h"
#include "platform/Shell.h"
#include "platform/Sound.h"
#include "platform/linux/CanberraSound.h"
#include "platform/linux/CurlSmtp.h"
#include "platform/linux/DesktopMailClients.h"
#include "platform/linux/LinuxShell.h"
#include "search/MailSearch.h"

namespace {

struct TDesktop {
    std::unique_ptr<QApplication> qt;
    std::unique_ptr<TQtApplication> application;
    std::unique_ptr<TQtDialogs> dialogs;
    std::unique_ptr<TLinuxShell> shell;
    std::unique_ptr<TCanberraSound> sound;
};

void SaveScreenshotAndQuit(TInboxWindow& window, const char* path) {
    QTimer::singleShot(300, &window, [&window, path] {
        const bool saved = window.grab().save(QString::fromLocal8Bit(path), "PNG");
        std::fprintf(stderr,
                     saved ? "vellumdesk: saved a picture of the window to %s\n"
                           : "vellumdesk: could not save %s\n",
                     path);
        Application->Terminate();
    });
}

} // namespace

int main(int argc, char** argv) {
    if (const int status = HandleCommandLine(argc, argv); status >= 0) return status;
    TDesktop desktop;
    TProgramParts parts;
    parts.initialiseApplication = [&] {
        desktop.qt = std::make_unique<QApplication>(argc, argv);
        QApplication::setApplicationName("Vellumdesk");
        desktop.application = std::make_unique<TQtApplication>();
        desktop.application->ExeName = OwnProgramPath(argv[0]);
        desktop.application->RegisterModalView("frmMailSearch", [](TForm& form) {
            return std::make_unique<TMailSearchDialog>(static_cast<TfrmMailSearch&>(form));
        });
        Application = desktop.application.get();
        desktop.application->RegisterModalView("frmSendTo", TSendToDialog::Create);
        desktop.dialogs = std::make_unique<TQtDialogs>();
        Dialogs = desktop.dialogs.get();
        desktop.shell = std::make_unique<TLinuxShell>();
        Shell = desktop.shell.get();
        desktop.sound = std::make_unique<TCanberraSound>();
        Sound = desktop.sound.get();
        desktop.application->RegisterModalView("frmFilterCriteria", MakeFilterCriteriaDialog);
        CreateRegistry = CreateDesktopRegistry;
        CreateSmtpClient = CreateCurlSmtp;
    };
    parts.alreadyRunning = [] { TRaiseChannel::Ring(TRaiseChannel::PathFor(instanceLockName)); };
    parts.run = [&](TInboxFrm& inbox) {
        TInboxWindow window(inbox);
        TRaiseChannel raise(TRaiseChannel::PathFor(instanceLockName), window);
        desktop.dialogs->Parent = &window;
        inbox.OnClose = [] { Application->Terminate(); };
        if (const char* screenshot = std::getenv("VELLUMDESK_SCREENSHOT"))
            QObject::connect(&window, &TInboxWindow::activated, &window,
                             [&window, screenshot] { SaveScreenshotAndQuit(window, screenshot); });
        std::unique_ptr<TScanTimings> timings;
        if (std::getenv("VELLUMDESK_SCAN_TIMINGS"))
            timings = std::make_unique<TScanTimings>(window, window.ListView());
        window.show();
        QApplication::exec();
        desktop.dialogs->Parent = nullptr;
    };
    const int code = RunProgram(parts);
    Dialogs = nullptr;
    Sound = nullptr;
    Shell = nullptr;
    Application = nullptr;
    return code;
}
