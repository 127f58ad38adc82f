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
}

TCliSession::~TCliSession() {
    Utils = nullptr;
    Shell = nullptr;
    Application = nullptr;
}

AnsiString DesktopProgramPath() {
    const AnsiString self = OwnProgramPath();
    return self.SubString(1, self.LastDelimiter("/")) + "vellumdesk";
}

bool TakeProgramOption(std::vector<std::string>& args, AnsiString& program) {
    program = DesktopProgramPath();
    if (args.empty() || args[0] != "--program") return true;
    if (args.size() < 2 || args[1].empty()) return false;
    program = AnsiString(args[1]);
    args.erase(args.begin(), args.begin() + 2);
    return true;
}
