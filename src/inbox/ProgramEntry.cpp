#include "inbox/ProgramEntry.h"

#include <cstdio>

#include "forwarding/SendToForm.h"
#include "foundation/Utils.h"
#include "inbox/InboxForm.h"
#include "platform/Application.h"
#include "platform/Dialogs.h"
#include "platform/InstanceLock.h"
#include "rules/FilterCriteria.h"
#include "search/MailSearch.h"

namespace {

void ShowUncaught(const char* message) {
    if (Dialogs) Dialogs->ShowException(message);
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
    } catch (const Exception& e) {
        ShowUncaught(e.what());
    } catch (...) {
        // Anything that is not an exception of ours is shown with an empty message.
        ShowUncaught("");
    }
    lock.Release();
    return 0;
}
