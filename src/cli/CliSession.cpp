#include "cli/CliSession.h"

#include <climits>
#include <unistd.h>

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

AnsiString OwnProgramPath() {
    char path[PATH_MAX];
    const ssize_t length = ::readlink("/proc/self/exe", path, sizeof path - 1);
    return length > 0 ? AnsiString(path, static_cast<std::size_t>(length)) : AnsiString();
}
