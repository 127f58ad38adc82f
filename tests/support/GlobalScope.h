#pragma once
// Installs the process-wide objects a test needs (the application object,
// Utils, the shell) and takes them down again, so tests do not leak state.

#include <memory>

#include "foundation/Utils.h"
#include "platform/HeadlessApplication.h"
#include "platform/Shell.h"

class TGlobalScope {
public:
    // exeName stands for the program's own path (argument 0).
    explicit TGlobalScope(const AnsiString& exeName = "/opt/vellumdesk/vellumdesk");
    ~TGlobalScope();
    TGlobalScope(const TGlobalScope&) = delete;
    TGlobalScope& operator=(const TGlobalScope&) = delete;

    THeadlessApplication& App() { return *app; }
    TUtils& U() { return *utils; }

private:
    std::unique_ptr<THeadlessApplication> app;
    std::unique_ptr<TUtils> utils;
    std::unique_ptr<TShell> shell;
};

// Where the small helper programs of the tests are built.
std::string HelperProgram(const char* name);
