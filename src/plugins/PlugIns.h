#pragma once
// TPlugIns: the catalogues of the suite's small extra programs, each described
// by a manifest of name=value lines, and the start of an extension. Plug-ins
// come from folders named "PlugIns", extensions from folders named
// "Extentions" (the suite's own spelling), each on the program's side and
// under the data folder. One global object, PlugIns, owned by Globals.

#include <cstdint>
#include <memory>

#include "foundation/StringList.h"
#include "platform/ChildProcess.h"

class TPlugIns {
public:
    // The fields of a manifest, by their index in the key table.
    enum TManifestField : std::uint16_t {
        mfCaption,
        mfDescription,
        mfExecutable,
        mfParam,
        mfAction,
        mfMutex,
        mfMenuId,
        mfExecute,
    };

    TPlugIns();
    ~TPlugIns();
    TPlugIns(const TPlugIns&) = delete;
    TPlugIns& operator=(const TPlugIns&) = delete;

    // Keeps the address, not a copy: folder must outlive this object.
    void SetDataFolder(const AnsiString& folder) { DataFolderRef = &folder; }
    int LoadExtensions(const AnsiString& root, TStringList& idList);
    int LoadPlugIns(const AnsiString& root, TStringList& idList);
    int ScanManifests(TStringList& idList);

    // path empty: the manifest read last.
    AnsiString GetManifestField(std::uint16_t field, const AnsiString& path);
    int GetManifestParams(const AnsiString& path);
    bool LoadManifest(const AnsiString& path, TStringList& lines);

    bool ExecuteExtension(const AnsiString& caption);
    bool Execute(const AnsiString& caption);
    bool RunChild(const AnsiString& executable, const AnsiString& commandLine);
    bool IsChildRunning();

    AnsiString PlugInFolder;
    AnsiString ExtensionFolder;
    AnsiString OwnPlugInFolder;
    AnsiString OwnExtensionFolder;
    AnsiString BaseFolder;
    std::unique_ptr<TStringList> PlugInList;
    std::unique_ptr<TStringList> ExtensionList;
    TStringList ManifestLines;
    const AnsiString* DataFolderRef = nullptr;
    TStringList* CurrentList = nullptr;
    AnsiString* CurrentFolder = nullptr;
    AnsiString* CurrentOwnFolder = nullptr;
    // The last child started, for as long as a run waits for it.
    std::weak_ptr<TChildProcess> ChildProcess;
    TStringList ParamList;

private:
    AnsiString ResolveExecutable(const AnsiString& executable);
    AnsiString ParamsFromManifest();
    AnsiString WriteParamFile(const AnsiString& executable, AnsiString& fileName);
    static bool AwaitInputIdle(TChildProcess& child);
    static void WaitWhileChildRuns(TChildProcess& child);
};

extern TPlugIns* PlugIns;
