// TPlugIns: running an extension, as a child this program waits for or as a
// program it starts and lets go.

#include <chrono>
#include <unistd.h>

#include "foundation/Utils.h"
#include "platform/Application.h"
#include "platform/Shell.h"
#include "plugins/PlugIns.h"
#include "settings/Globals.h"

namespace {

constexpr std::uint32_t inputIdleMs = 3000;
// How long one look at the child may wait before the loop runs again: short
// enough that the windows answer at once, long enough not to spin a core.
constexpr std::uint32_t pollSliceMs = 10;

std::uint32_t MsSince(std::chrono::steady_clock::time_point start) {
    const auto elapsed = std::chrono::steady_clock::now() - start;
    return static_cast<std::uint32_t>(
        std::chrono::duration_cast<std::chrono::milliseconds>(elapsed).count());
}

void RunMessageLoopOnce() {
    if (Application) Application->ProcessMessages();
}

bool Terminating() {
    return Application && Application->Terminated();
}

} // namespace

bool TPlugIns::ExecuteExtension(const AnsiString& caption) {
    CurrentList = ExtensionList.get();
    CurrentFolder = &ExtensionFolder;
    return Execute(caption);
}

bool TPlugIns::Execute(const AnsiString& caption) {
    if (caption.IsEmpty() || !CurrentList) return false;
    if (CurrentList->IndexOfName(caption) < 0) return false;
    const AnsiString path = CurrentList->GetValue(caption).Trim();
    const AnsiString action = GetManifestField(mfExecute, path);
    const AnsiString executable = ResolveExecutable(GetManifestField(mfExecutable, path));
    if (executable.IsEmpty()) return false;

    const AnsiString params = ParamList.Count() == 0 ? ParamsFromManifest() : AnsiString();
    AnsiString fileName;
    const AnsiString filePath =
        ParamList.Count() > 0 ? WriteParamFile(executable, fileName) : AnsiString();
    ParamList.Clear();

    if (Application) Application->NormalizeAllTopMosts();
    const AnsiString word = action.LowerCase();
    if (word == "child" || action.IsEmpty()) {
        RunChild(executable, fileName);
        if (!filePath.IsEmpty()) ::unlink(filePath.c_str());
        if (Application) Application->BringToFront();
        if (Application && Globals && Globals->Config.StayOnTop()) Application->RestoreTopMosts();
    } else if (word == "spawn") {
        Utils->ExecuteFile(executable, params, true);
        Utils->Delay(3000);
    }
    ManifestLines.Clear();
    return true;
}

// A path that names a file is used as it is; any other is taken below the
// folder that holds the extensions. A result without a folder gets "./", so
// it is never looked up by name.
AnsiString TPlugIns::ResolveExecutable(const AnsiString& executable) {
    if (executable.IsEmpty()) return "";
    AnsiString resolved = executable;
    if (!Utils->FileExists(resolved)) {
        resolved = Utils->AddBackslash(BaseFolder) + Utils->StripLeadingBackslash(executable);
        if (!Utils->FileExists(resolved)) return "";
    }
    return resolved.Pos("/") == 0 ? "./" + resolved : resolved;
}

AnsiString TPlugIns::ParamsFromManifest() {
    GetManifestParams("");
    AnsiString params;
    for (const AnsiString& param : ParamList) {
        AnsiString piece;
        params += piece.sprintf("%s ", param.c_str());
    }
    ParamList.Clear();
    return params.Trim();
}

// The lines a caller gave go to a file beside the program, named after it;
// the child gets that file's name.
AnsiString TPlugIns::WriteParamFile(const AnsiString& executable, AnsiString& fileName) {
    AnsiString drive, folder, name, ext;
    Utils->SplitPath(executable, drive, folder, name, ext);
    const AnsiString filePath = drive + folder + name + ".ini";
    fileName.sprintf("%s.ini", name.c_str());
    try {
        ParamList.SaveToFile(filePath);
    } catch (const Exception&) {
    }
    return filePath;
}

bool TPlugIns::RunChild(const AnsiString& executable, const AnsiString& commandLine) {
    std::vector<AnsiString> args;
    if (!commandLine.IsEmpty()) args.push_back(commandLine);
    std::shared_ptr<TChildProcess> child;
    if (Shell) child = Shell->StartChild(executable, args);
    if (!child) return false;
    ChildProcess = child;
    if (AwaitInputIdle(*child)) WaitWhileChildRuns(*child);
    // A child nobody waits for any more is collected when it ends, see
    // ChildProcess.h.
    return true;
}

bool TPlugIns::IsChildRunning() {
    const std::shared_ptr<TChildProcess> child = ChildProcess.lock();
    return child && child->Running();
}

// The windows stay alive while the child gets ready.
bool TPlugIns::AwaitInputIdle(TChildProcess& child) {
    const auto start = std::chrono::steady_clock::now();
    for (;;) {
        const TChildProcess::TInputIdle idle = child.WaitForInputIdle(pollSliceMs);
        if (idle != TChildProcess::TInputIdle::TimedOut)
            return idle == TChildProcess::TInputIdle::Ready;
        if (MsSince(start) >= inputIdleMs) return false;
        RunMessageLoopOnce();
    }
}

// Polls the child, keeping the windows alive, until it ends. A program that is
// being closed stops waiting and leaves the child running on its own: a help
// window open beside the program must not keep the program from closing.
void TPlugIns::WaitWhileChildRuns(TChildProcess& child) {
    while (child.Running()) {
        RunMessageLoopOnce();
        if (Terminating()) return;
        child.WaitForEnd(pollSliceMs);
    }
}
