#include "inbox/ProgramEntry.h"

#include <cstdio>
#include <exception>

#include "forwarding/SendToForm.h"
#include "foundation/Utils.h"
#include "inbox/InboxForm.h"
#include "platform/Application.h"
#include "platform/Dialogs.h"
#include "platform/InstanceLock.h"
#include "rules/FilterCriteria.h"
#include "search/MailSearch.h"

namespace {

// What no handler caught ends the run: the box shows it, the caller hears of
// it, and the exit status says so. A text that says nothing (an exception of
// no kind of ours) is named as such.
int ShowUncaught(const TProgramParts& parts, const char* what) {
    const AnsiString message(what && *what ? what : "unknown internal error");
    if (Dialogs) Dialogs->ShowException(message);
    if (parts.uncaught) parts.uncaught(message);
    return uncaughtExitCode;
}

} // namespace

int RunProgram(const TProgramParts& parts) {
    TInstanceLock lock;
    if (parts.singleInstance && !lock.TryAcquire(instanceLockName)) {
        std::fprintf(stderr, "vellumdesk: %s\n", lock.Problem.c_str());
        if (parts.alreadyRunning) parts.alreadyRunning();
        return 0;
    }
    TUtils::EnterDataFolder();
    int code = 0;
    try {
        if (parts.initialiseApplication) parts.initialiseApplication();
        Application->Title = "Vellumdesk";
        Application->HelpFile = "Help/QUILLPOST.HLP";
        TInboxFrm inboxFrm;
        TfrmSendTo sendTo;
        frmSendTo = &sendTo;
        struct TClear {
            ~TClear() { frmSendTo = nullptr; }
        } clearSendTo;
        TfrmFilterCriteria filterCriteria; // reached through frmFilterCriteria
        TfrmMailSearch mailSearch;
        const TMailSearchGlobal mailSearchGlobal(mailSearch);
        if (parts.run) parts.run(inboxFrm);
    } catch (const std::exception& e) {
        code = ShowUncaught(parts, e.what());
    } catch (...) {
        code = ShowUncaught(parts, nullptr);
    }
    lock.Release();
    return code;
}
