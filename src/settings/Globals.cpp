#include "settings/Globals.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "foundation/FileDescriptor.h"
#include "foundation/Utils.h"
#include "plugins/PlugIns.h"
#include "settings/PanelButtons.h"

TGlobals* Globals = nullptr;

namespace {

const AnsiString separators = "\\/";

} // namespace

TGlobals::TGlobals() : OwnedPlugIns(std::make_unique<TPlugIns>()) {
    PlugIns = OwnedPlugIns.get();
    FillMailClients();
    if (Application) {
        Application->OnMessage = [this](const TApplication::TMessage& message, bool& handled) {
            AppMessage(message, handled);
        };
        Application->OnHelp = [this](int command, long data, bool& callHelp) {
            return AppHelp(command, data, callHelp);
        };
    }
}

TGlobals::~TGlobals() {
    if (PlugIns == OwnedPlugIns.get()) PlugIns = nullptr;
    if (Application) {
        Application->OnMessage = nullptr;
        Application->OnHelp = nullptr;
    }
}

// The registry gives key=display name with a "default" line in front; the
// program wants display name=key. The list is turned around only when the
// default names a client that is there.
void TGlobals::FillMailClients() {
    EMailReg = std::make_unique<TEMailReg>();
    EMailReg->GetMailClients(MailClients);
    const int defaultLine = MailClients.IndexOfName("default");
    if (defaultLine >= 0 && MailClients.IndexOfName(MailClients.GetValue("default")) >= 0) {
        MailClients.Delete(defaultLine);
        for (int i = 0; i < MailClients.Count(); ++i) {
            const AnsiString key = MailClients.GetName(i);
            const AnsiString name =
                MailClients[i].SubString(key.Length() + 2, MailClients[i].Length());
            MailClients.PutStrings(i, name + "=" + key);
        }
    }
    if (const int hotmail = MailClients.IndexOfName("Hotmail"); hotmail >= 0)
        MailClients.Delete(hotmail);
}

// The data folder is the XDG data home + "Quillpost Users". The help folder
// lies beside the program or beside the program's folder; an installed
// program, in <prefix>/bin, finds it in <prefix>/share/vellumdesk.
void TGlobals::InitFolders() {
    DataFolder = Utils->AddBackslash(Utils->GetSpecialFolder(26)) + "Quillpost Users";
    if (OsMajorVersion < 5) {
        Utils->MakeFolder(DataFolder);
        DataFolder = Utils->AddBackslash(DataFolder) + Utils->GetLoginName();
        Utils->MakeFolder(DataFolder);
    }
    if (!Application) return;
    PlugIns->SetDataFolder(DataFolder);
    PlugIns->LoadExtensions("Extentions", ExtensionIds);
    PlugIns->LoadPlugIns("PlugIns", PlugInIds);
    const AnsiString helpName = Application->HelpFile;
    const AnsiString appFolder = Utils->GetAppFolder();
    AnsiString helpPath = appFolder + helpName;
    if (!Utils->FolderExists(helpPath)) {
        const AnsiString above =
            Utils->ParentPath(Utils->ParentPath(appFolder, separators), separators);
        helpPath = Utils->AddBackslash(above) + helpName;
        const AnsiString installed = Utils->AddBackslash(above) + "share/vellumdesk/" + helpName;
        if (!Utils->FileExists(helpPath) && Utils->FileExists(installed)) helpPath = installed;
    }
    Application->HelpFile = helpPath;
}

// The suite's programs lock Config.cfg while they write it; a record that is
// being written counts as not readable. Only a plain file is read, so a pipe
// or a device of that name can neither block the start nor feed it.
bool TGlobals::LoadConfig() {
    const AnsiString path = Utils->AddBackslash(DataFolder) + "Config.cfg";
    TFileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    if (!file.IsOpen()) return false;
    struct stat st {};
    if (::fstat(file.Get(), &st) != 0 || !S_ISREG(st.st_mode)) return false;
    if (::flock(file.Get(), LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK) return false;
    std::size_t got = 0;
    while (got < ConfigRecord::size) {
        const ssize_t n = ::read(file.Get(), Config.Bytes.data() + got, ConfigRecord::size - got);
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return false;
        if (n == 0) break;
        got += static_cast<std::size_t>(n);
    }
    RejectedFolder = Utils->AddBackslash(Config.SharedFolder()) + "Rejected Mail";
    return true;
}

void TGlobals::AppMessage(const TApplication::TMessage& message, bool&) {
    if (message.Message == TApplication::wmNcLButtonDown &&
        message.HitTest == TApplication::htHelp && PButtons)
        PButtons->HelpMode = true;
}

bool TGlobals::AppHelp(int command, long data, bool& callHelp) {
    if (PButtons) PButtons->HelpMode = false;
    callHelp = false;
    if (data == 0 || data > 1024 || data < 0) return false;
    if (command == TApplication::helpContextPopup) ShowContextHelp(static_cast<int>(data));
    return true;
}
