#pragma once
// A session of the desktop program driven by a script: the same entry
// sequence, windows and services, with the person and the screen replaced.
// Dialogs are answered from the script, and what the session shows or starts
// is reported on the output as it happens, one tab-separated line each.

#include <cstdio>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/HeadlessApplication.h"
#include "platform/Registry.h"
#include "platform/ReportingShell.h"
#include "platform/ReportingSound.h"
#include "platform/ScriptedDialogs.h"
#include "script/ScriptParser.h"

class TControl;
class TForm;
class TInboxFrm;

class TScriptSession {
public:
    // realShell starts what the session starts; registry lists the mail
    // clients; exeName stands for the desktop program's own path.
    // realSound plays what the session plays (null: silence); every sound is
    // reported as "sound FILE".
    TScriptSession(TShell& realShell, TRegistryFactory registry, const AnsiString& exeName,
                   std::FILE* out, TSound* realSound = nullptr);
    ~TScriptSession();

    // 0 when the session ran to its end; 2 after a script error, which is
    // written to err as "line N: reason".
    int Run(const std::vector<TScriptCommand>& commands, std::FILE* err);

private:
    using TResult = std::optional<std::string>; // a script error, or nothing

    TResult BeforeStart(const TScriptCommand& command);
    void InstallServices();
    void RemoveServices();
    void RunWindow(TInboxFrm& inbox);
    // Runs the script's next commands while more is true: the main window's
    // loop, and the loop of each modal window while it is open.
    void RunCommands(const std::function<bool()>& more);
    TResult Execute(const TScriptCommand& command);
    TResult ExecuteOnControl(TControl& control, const TScriptCommand& command);
    TResult Show(const std::string& target);
    void Drain();
    void Print(const std::vector<std::string>& fields);
    // The answers queued before a command are for its dialogs and menus only.
    void QueueAnswer(const TScriptCommand& command);
    TResult ExecuteWithItsAnswers(const TScriptCommand& command);
    void DropUnusedAnswers(std::size_t queued, std::size_t takenBefore);

    TRegistryFactory registry;
    THeadlessApplication application;
    TScriptedDialogs dialogs;
    TReportingShell shell;
    TReportingSound sound;
    std::FILE* out;
    std::FILE* err = stderr;
    std::deque<int> answerLines; // the script line of each queued answer
    std::size_t answersSeen = 0; // answers taken that answerLines has let go
    std::string handOffPath;
    std::optional<TScriptError> failure;
    const std::vector<TScriptCommand>* script = nullptr;
    std::size_t next = 0;
    TInboxFrm* mainWindow = nullptr;
    bool quit = false;    // the main window has closed
    bool closing = false; // the script said quit
};
