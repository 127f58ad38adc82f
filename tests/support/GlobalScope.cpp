#include "support/GlobalScope.h"

#include "platform/linux/LinuxShell.h"

TGlobalScope::TGlobalScope(const AnsiString& exeName)
    : app(std::make_unique<THeadlessApplication>()), utils(std::make_unique<TUtils>()),
      shell(std::make_unique<TLinuxShell>()) {
    app->ExeName = exeName;
    Application = app.get();
    Utils = utils.get();
    Shell = shell.get();
}

TGlobalScope::~TGlobalScope() {
    Shell = nullptr;
    Utils = nullptr;
    Application = nullptr;
}

std::string HelperProgram(const char* name) {
    return std::string(VD_TEST_HELPER_DIR) + "/" + name;
}
