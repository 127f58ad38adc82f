#include "cli/CliSession.h"

#include <algorithm>

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

AnsiString DesktopProgramPath() {
    const AnsiString self = OwnProgramPath();
    return self.SubString(1, self.LastDelimiter("/")) + "vellumdesk";
}

bool TakeProgramOption(std::vector<std::string>& args, AnsiString& program) {
    program = DesktopProgramPath();
    const auto option = std::find(args.begin(), args.end(), "--program");
    if (option == args.end()) return true;
    if (option + 1 == args.end() || option[1].empty()) return false;
    program = AnsiString(option[1]);
    args.erase(option, option + 2);
    return true;
}
