// TPlugIns: the two catalogues and the reading of a manifest.

#include "plugins/PlugIns.h"

#include "foundation/Exceptions.h"
#include "foundation/Utils.h"

TPlugIns* PlugIns = nullptr;

namespace {

// The keys of a manifest, in the order of their field numbers.
constexpr const char* manifestKeys[] = {"caption", "description", "executable", "param",
                                        "action",  "mutex",       "menuid",     "execute"};

const AnsiString separators = "\\/";

AnsiString KeyOf(std::uint16_t field) {
    return field < std::size(manifestKeys) ? AnsiString(manifestKeys[field]) : AnsiString();
}

// The name of a name=value line as a manifest compares it; false for a line
// without "=".
bool NameOf(const AnsiString& line, AnsiString& name) {
    const int equals = line.Pos("=");
    if (equals == 0) return false;
    name = line.SubString(1, equals - 1).Trim().LowerCase();
    return true;
}

AnsiString ValueOf(const AnsiString& line) {
    return line.SubString(line.Pos("=") + 1, line.Length()).Trim();
}

} // namespace

TPlugIns::TPlugIns() = default;
TPlugIns::~TPlugIns() = default;

int TPlugIns::LoadPlugIns(const AnsiString& root, TStringList& idList) {
    const AnsiString word = root.IsEmpty() ? AnsiString("PlugIns") : root;
    PlugInFolder = Utils->AddBackslash(DataFolderRef ? *DataFolderRef : AnsiString()) + word;
    OwnPlugInFolder = Utils->GetAppFolder() + "PlugIns";
    PlugInList = std::make_unique<TStringList>();
    CurrentList = PlugInList.get();
    CurrentFolder = &PlugInFolder;
    CurrentOwnFolder = &OwnPlugInFolder;
    return ScanManifests(idList);
}

// A program in a folder of its own (bin/) finds the extensions beside that
// folder when it has none itself.
int TPlugIns::LoadExtensions(const AnsiString& root, TStringList& idList) {
    const AnsiString word = root.IsEmpty() ? AnsiString("Extentions") : root;
    ExtensionFolder = Utils->AddBackslash(DataFolderRef ? *DataFolderRef : AnsiString()) + word;
    BaseFolder = Utils->GetAppFolder();
    OwnExtensionFolder = BaseFolder + "Extentions";
    if (!Utils->FolderExists(OwnExtensionFolder)) {
        BaseFolder = Utils->ParentPath(Utils->ParentPath(BaseFolder, separators), separators);
        OwnExtensionFolder = Utils->AddBackslash(BaseFolder) + "Extentions";
    }
    ExtensionList = std::make_unique<TStringList>();
    CurrentList = ExtensionList.get();
    CurrentFolder = &ExtensionFolder;
    CurrentOwnFolder = &OwnExtensionFolder;
    return ScanManifests(idList);
}

int TPlugIns::ScanManifests(TStringList& idList) {
    idList.Clear();
    if (!CurrentList) return 0;
    CurrentList->Clear();
    for (const AnsiString* side : {CurrentOwnFolder, CurrentFolder}) {
        const AnsiString folder = Utils->AddBackslash(side ? *side : AnsiString());
        const int first = CurrentList->Count();
        if (Utils->SearchFiles(folder + "*.ini", 0, *CurrentList, false)) {
            for (int i = first; i < CurrentList->Count(); ++i) {
                const AnsiString fileName = (*CurrentList)[i];
                const AnsiString path = folder + fileName;
                AnsiString caption = GetManifestField(mfCaption, path);
                if (caption.IsEmpty()) caption = Utils->RemoveExtension(fileName);
                CurrentList->PutStrings(i, caption + "=" + path);
                idList.Add(GetManifestField(mfMenuId, "") + "=" + caption);
            }
        }
        ManifestLines.Clear();
    }
    return idList.Count();
}

AnsiString TPlugIns::GetManifestField(std::uint16_t field, const AnsiString& path) {
    if (!LoadManifest(path, ManifestLines)) return "";
    const AnsiString key = KeyOf(field);
    AnsiString name;
    for (const AnsiString& line : ManifestLines)
        if (NameOf(line, name) && name == key) return ValueOf(line);
    return "";
}

int TPlugIns::GetManifestParams(const AnsiString& path) {
    ParamList.Clear();
    if (!LoadManifest(path, ManifestLines)) return 0;
    AnsiString name;
    for (const AnsiString& line : ManifestLines)
        if (NameOf(line, name) && name == "param") ParamList.Add(ValueOf(line));
    return ParamList.Count();
}

// A failed read leaves lines empty, so the next read without a path cannot
// answer from the manifest before: an unreadable manifest has no fields.
bool TPlugIns::LoadManifest(const AnsiString& path, TStringList& lines) {
    if (path.IsEmpty() && lines.Count() > 0) return true;
    lines.Clear();
    try {
        lines.LoadFromFile(path);
    } catch (const Exception&) {
        lines.Clear();
        return false;
    }
    return true;
}
