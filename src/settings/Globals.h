#pragma once
// TGlobals: what the whole program shares: the data folder, the mail clients,
// the settings record of Config.cfg, the menu and client helpers, and the
// application's help hooks. One global object, Globals, owned by the main
// window from its creation to its destruction.

#include <functional>
#include <memory>

#include "foundation/StringList.h"
#include "platform/Application.h"
#include "settings/ConfigRecord.h"
#include "settings/EMailReg.h"

class TComboBox;
class TMenuItem;
class TPlugIns;

class TGlobals {
public:
    TGlobals();
    ~TGlobals();
    TGlobals(const TGlobals&) = delete;
    TGlobals& operator=(const TGlobals&) = delete;

    void InitFolders();
    bool LoadConfig();

    // Menu and mail-client helpers.
    int FillMenu(TMenuItem& item, const TStringList& list);
    // The menu of a window's mail-client button: every client found, each
    // item running onClick; left as it is when no client was found.
    void FillClientMenu(TMenuItem& item, std::function<void(TMenuItem& sender)> onClick);
    // True when the client started; nothing is shown on any failure.
    bool OpenInMailClient(const AnsiString& client, const AnsiString& file);
    AnsiString FindLineValue(const AnsiString& key, const TStringList& lines);

    // The application's hooks of the help path.
    void AppMessage(const TApplication::TMessage& message, bool& handled);
    bool AppHelp(int command, long data, bool& callHelp);
    void ShowContextHelp(int id);

    // Rules: the four rule files and the Filter Editor that shapes a rule.
    bool AppendRuleLine(const AnsiString& path, const AnsiString& line);
    void AddRule(const AnsiString& from, const AnsiString& subject, bool reject, bool master,
                 const AnsiString& mailboxFolder);

    // Audio alerts: Alerts.ini in the shared folder, names to sound files.
    bool LoadAlerts(TStringList& list);
    bool SaveAlerts(TStringList& list);
    AnsiString FindAlert(const AnsiString& name, const TStringList& list);
    AnsiString AddAlert(const AnsiString& path, TStringList& list);
    void FillCombo(const AnsiString& current, TComboBox& combo, const TStringList& list);
    AnsiString AlertsPath() const;

    // What every window's Help button runs: the suite's help extension.
    void RunSystemHelp();

    AnsiString DataFolder;
    AnsiString RejectedFolder;
    TStringList ExtensionIds;
    TStringList PlugInIds;
    TStringList MailClients;
    ConfigRecord Config;
    std::function<void(TMenuItem& sender)> MenuClick;
    std::unique_ptr<TEMailReg> EMailReg;
    std::unique_ptr<TPlugIns> OwnedPlugIns; // the object behind PlugIns

private:
    void FillMailClients();
};

extern TGlobals* Globals;
