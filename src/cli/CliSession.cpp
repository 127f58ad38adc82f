#include "cli/CliSession.h"

#include "platform/ProgramPath.h"
#include "platform/linux/LinuxShell.h"

TCliSession::TCliSession()
    : app(std::make_unique<THeadlessApplication>()), shell(std::make_unique<TLinuxShell>()),
      utils(std::make_unique<TUtils>()) {
    app->ExeName = OwnProgramPath();
    app->Title = "Vellumdesk";
    Application = app.get();
    Shell = shell.get();
    Utils = utils.get();
    TUtils::EnterDataFolder();
}

TCliSession::~TCliSession() {
    Utils = nullptr;
    Shell = nullptr;
    Application = nullptr;
}
