#include "script/ScriptSession.h"

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

#include "inbox/InboxForm.h"
#include "inbox/ProgramEntry.h"
#include "platform/Dialogs.h"
#include "script/ControlScript.h"
#include "script/FieldEscape.h"
#include "script/ScriptCheck.h"

namespace {

// The hand-off file while it exists: an interrupted session removes it too.
char handOffToRemove[4096];

void RemoveHandOffAndStop(int signal) {
    if (handOffToRemove[0]) ::unlink(handOffToRemove);
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void RemoveHandOffOnSignals(const std::string& path) {
    if (path.size() >= sizeof handOffToRemove) return;
    std::memcpy(handOffToRemove, path.c_str(), path.size() + 1);
    std::signal(SIGINT, RemoveHandOffAndStop);
    std::signal(SIGTERM, RemoveHandOffAndStop);
}

} // namespace

TScriptSession::TScriptSession(TShell& realShell, TRegistryFactory registry,
                               const AnsiString& exeName, std::FILE* out, TSound* realSound)
    : registry(registry), shell(realShell), sound(realSound), out(out) {
    application.ExeName = exeName;
    dialogs.OnDialog = [this](const char* kind, const AnsiString& title, const AnsiString& text,
                              const AnsiString& answer) {
        Print({"dialog", kind, title.str(), text.str(), answer.str()});
    };
    sound.OnPlay = [this](const AnsiString& path) { Print({"sound", path.str()}); };
    shell.OnStart = [this](const AnsiString& file, const std::vector<AnsiString>& args,
                           bool started) {
        std::vector<std::string> fields{started ? "started" : "refused", file.str()};
        for (const AnsiString& arg : args)
            fields.push_back(arg.str());
        Print(fields);
    };
}

TScriptSession::~TScriptSession() {
    handOffToRemove[0] = '\0';
    if (!handOffPath.empty()) ::unlink(handOffPath.c_str());
}

void TScriptSession::Print(const std::vector<std::string>& fields) {
    std::string line;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i) line += '\t';
        AppendEscaped(line, fields[i]);
    }
    line += '\n';
    std::fwrite(line.data(), 1, line.size(), out);
    std::fflush(out);
}

void TScriptSession::InstallServices() {
    Application = &application;
    Dialogs = &dialogs;
    Shell = &shell;
    Sound = &sound;
    CreateRegistry = registry;
}

void TScriptSession::RemoveServices() {
    CreateRegistry = nullptr;
    Sound = nullptr;
    Shell = nullptr;
    Dialogs = nullptr;
    Application = nullptr;
}

int TScriptSession::Run(const std::vector<TScriptCommand>& commands, std::FILE* errors) {
    err = errors;
    failure = CheckScript(commands);
    script = &commands;
    next = 0;
    for (; !failure && next < commands.size() && commands[next].Words[0] != "start"; ++next) {
        if (TResult error = BeforeStart(commands[next])) {
            failure = TScriptError{commands[next].Line, *error};
            break;
        }
    }
    int status = 0;
    if (!failure && next < commands.size()) {
        TProgramParts parts;
        parts.singleInstance = false;
        parts.initialiseApplication = [this] { InstallServices(); };
        ++next;
        parts.run = [this](TInboxFrm& inbox) { RunWindow(inbox); };
        // The command that was running when the session broke off is named.
        parts.uncaught = [this](const AnsiString& message) {
            failure = TScriptError{(*script)[next - 1].Line, "internal error: " + message.str()};
        };
        status = RunProgram(parts);
        RemoveServices();
    }
    if (!failure) return 0;
    const std::string line = "line " + std::to_string(failure->Line) + ": " +
                             Escaped(failure->Reason, TEscape::Controls) + "\n";
    std::fwrite(line.data(), 1, line.size(), err);
    return status != 0 ? status : 2;
}

TScriptSession::TResult TScriptSession::BeforeStart(const TScriptCommand& command) {
    const std::vector<std::string>& words = command.Words;
    if (words[0] == "answer" && words.size() == 2) {
        QueueAnswer(command);
        return std::nullopt;
    }
    if (words[0] == "handoff" && (words.size() == 2 || words.size() == 3)) {
        const char* temp = std::getenv("TMPDIR");
        std::string path =
            std::string(temp && *temp ? temp : "/tmp") + "/vellumdesk-handoff-XXXXXX";
        const int fd = ::mkstemp(path.data());
        if (fd < 0) return "cannot write the hand-off file";
        const std::string text = words[1] + "\r\n" + (words.size() == 3 ? words[2] + "\r\n" : "");
        const bool written = ::write(fd, text.data(), text.size()) == ssize_t(text.size());
        ::close(fd);
        if (!handOffPath.empty()) ::unlink(handOffPath.c_str());
        handOffPath = path;
        RemoveHandOffOnSignals(handOffPath);
        return written ? std::nullopt : TResult("cannot write the hand-off file");
    }
    if (IsWindowCommand(words[0])) return "'" + words[0] + "' needs a running program: start first";
    return "unknown command '" + words[0] + "' or wrong number of arguments";
}

void TScriptSession::RunWindow(TInboxFrm& inbox) {
    mainWindow = &inbox;
    inbox.HandOffPath = AnsiString(handOffPath);
    inbox.OnClose = [this] {
        quit = true;
        application.Terminate();
    };
    // A modal window runs the commands that follow its opening until it closes;
    // one still open at the end of the script is closed by its title bar.
    application.ModalLoop = [this](TForm& form) {
        RunCommands([&form] { return form.Visible(); });
    };
    const std::size_t startAnswers = answerLines.size();
    inbox.FormActivate();
    Drain();
    DropUnusedAnswers(startAnswers, 0);
    RunCommands([] { return true; });
    application.ModalLoop = nullptr;
    if (!quit) inbox.LMDpfClose.Click();
    mainWindow = nullptr;
}

void TScriptSession::RunCommands(const std::function<bool()>& more) {
    while (!failure && !quit && !closing && next < script->size() && more()) {
        const TScriptCommand& command = (*script)[next++];
        if (TResult error = ExecuteWithItsAnswers(command)) {
            failure = TScriptError{command.Line, *error};
            return;
        }
    }
}

void TScriptSession::QueueAnswer(const TScriptCommand& command) {
    dialogs.QueueAnswer(AnsiString(command.Words[1]));
    answerLines.push_back(command.Line);
}

// Dialogs take answers oldest first, so the command's own answers, at the
// front, go before any that a modal window's commands queue during it.
TScriptSession::TResult TScriptSession::ExecuteWithItsAnswers(const TScriptCommand& command) {
    if (command.Words[0] == "answer") return Execute(command);
    const std::size_t takenBefore = dialogs.AnswersTaken();
    const std::size_t queued = answerLines.size() - (takenBefore - answersSeen);
    TResult error = Execute(command);
    Drain();
    if (!error) DropUnusedAnswers(queued, takenBefore);
    return error;
}

void TScriptSession::DropUnusedAnswers(std::size_t queued, std::size_t takenBefore) {
    for (; answersSeen < dialogs.AnswersTaken(); ++answersSeen)
        answerLines.pop_front();
    const std::size_t used = dialogs.AnswersTaken() - takenBefore;
    if (used >= queued) return;
    for (const AnsiString& answer : dialogs.DropOldest(queued - used)) {
        const std::string warning = "line " + std::to_string(answerLines.front()) + ": answer '" +
                                    Escaped(answer.view(), TEscape::Controls) + "' was not used\n";
        std::fwrite(warning.data(), 1, warning.size(), err);
        answerLines.pop_front();
    }
}

// Runs what the command posted (a menu entry's click), as the loop would.
void TScriptSession::Drain() {
    for (int pass = 0; pass < 1000 && application.HasPendingEvents(); ++pass)
        application.ProcessMessages();
}

TScriptSession::TResult TScriptSession::Execute(const TScriptCommand& command) {
    const std::vector<std::string>& words = command.Words;
    if (words[0] == "answer" && words.size() == 2) {
        QueueAnswer(command);
        return std::nullopt;
    }
    if (words[0] == "quit" && words.size() == 1) {
        // The open modal windows close by their title bars, then the main window.
        closing = true;
        if (TForm* modal = TForm::TopModalForm()) {
            modal->WindowClose();
            return std::nullopt;
        }
        mainWindow->LMDpfClose.Click();
        quit = true;
        return std::nullopt;
    }
    if (words[0] == "start") return "the program has started already";
    if (words[0] == "handoff") return "handoff comes before start";
    if (words[0] == "show" && words.size() == 2) return Show(words[1]);
    if (!IsWindowCommand(words[0]) || words.size() < 2)
        return "unknown command '" + words[0] + "' or wrong number of arguments";
    TControl* control = FindControl(words[1]);
    if (!control) return "unknown control '" + words[1] + "'";
    // While a modal window is open, no other window takes input.
    TForm* modal = TForm::TopModalForm();
    if (modal && control->Owner() != modal)
        return "'" + words[1] + "' takes no input while '" + modal->Name() + "' is open";
    return ExecuteOnControl(*control, command);
}

TScriptSession::TResult TScriptSession::ExecuteOnControl(TControl& control,
                                                         const TScriptCommand& command) {
    if (command.Words[0] == "help") {
        application.DispatchMessage({TApplication::wmNcLButtonDown, TApplication::htHelp});
        return ControlCommand(control, {"click", command.Words[1]});
    }
    return ControlCommand(control, command.Words);
}

TScriptSession::TResult TScriptSession::Show(const std::string& target) {
    if (TForm* form = TForm::FindForm(target)) {
        const TForm* modal = TForm::TopModalForm();
        Print({"Caption=" + form->Caption().str()});
        Print({std::string("Visible=") + (form->Visible() ? "true" : "false")});
        Print({"Modal=" + (modal ? modal->Name() : std::string("none"))});
        return std::nullopt;
    }
    TControl* control = FindControl(target);
    if (!control) return "unknown control '" + target + "'";
    for (const std::string& line : ShowControl(*control)) {
        std::fwrite(line.data(), 1, line.size(), out);
        std::fputc('\n', out);
    }
    std::fflush(out);
    return std::nullopt;
}
