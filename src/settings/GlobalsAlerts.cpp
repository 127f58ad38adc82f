// TGlobals: the named sounds of Alerts.ini.
//
// A value is the sound file's path as the file system spells it. The older
// form, a short path in lower case, exists on no file system here, and a
// lowered path would no longer open for the suite's other programs.

#include "controls/ComboBox.h"
#include "foundation/FileLock.h"
#include "foundation/ListFile.h"
#include "foundation/Utils.h"
#include "settings/Globals.h"

namespace {

const AnsiString noneLine = "~NONE~=~none~";
const AnsiString noneValue = "~none~";

// The value of line i: all behind its first "=".
AnsiString ValueAt(const TStringList& list, int i) {
    const AnsiString& line = list[i];
    const int eq = line.Pos("=");
    return eq > 0 ? line.SubString(eq + 1, line.Length()) : AnsiString();
}

// A missing file is made with the line of no sound. One that is there but
// cannot be read is not replaced: the list then offers that line alone.
bool LoadAlertsFile(TStringList& list, const AnsiString& path) {
    list.SetSorted(true);
    try {
        if (!LoadExistingListFile(list, path)) {
            list.Add(noneLine);
            list.SaveToFile(path);
        }
    } catch (const Exception&) {
        list.Add(noneLine);
        Utils->WriteLog("Alert file missing: %s", path.c_str());
        return false;
    }
    for (int i = list.Count() - 1; i >= 0; --i)
        if (list[i].IsEmpty()) list.Delete(i);
    return true;
}

bool SaveAlertsFile(TStringList& list, const AnsiString& path) {
    list.SetSorted(true);
    try {
        list.SaveToFile(path);
        return true;
    } catch (const Exception&) {
        Utils->WriteLog("Can' save alert file %s", path.c_str());
        return false;
    }
}

// The name of a new entry: the file's stem without its last extension, in
// upper case. An "=" would end the name early, so it becomes "_".
AnsiString AlertName(const AnsiString& path) {
    AnsiString name = Utils->RemoveExtension(Utils->FileStem(path)).UpperCase();
    for (int at = name.Pos("="); at > 0; at = name.Pos("="))
        name[at] = '_';
    return name;
}

} // namespace

AnsiString TGlobals::AlertsPath() const {
    return Utils->AddBackslash(Config.SharedFolder()) + "Alerts.ini";
}

bool TGlobals::LoadAlerts(TStringList& list) {
    const AnsiString path = AlertsPath();
    try {
        TFileLock lock(path);
        return LoadAlertsFile(list, path);
    } catch (const Exception&) {
        list.SetSorted(true);
        list.Add(noneLine);
        Utils->WriteLog("Alert file missing: %s", path.c_str());
        return false;
    }
}

bool TGlobals::SaveAlerts(TStringList& list) {
    const AnsiString path = AlertsPath();
    try {
        TFileLock lock(path);
        return SaveAlertsFile(list, path);
    } catch (const Exception&) {
        Utils->WriteLog("Can' save alert file %s", path.c_str());
        return false;
    }
}

AnsiString TGlobals::FindAlert(const AnsiString& name, const TStringList& list) {
    AnsiString found;
    if (const int i = list.IndexOfName(name.UpperCase()); i >= 0) {
        found = ValueAt(list, i);
    } else if (const AnsiString path = Utils->ShortPath(name); !path.IsEmpty()) {
        for (int j = 0; j < list.Count() && found.IsEmpty(); ++j)
            if (ValueAt(list, j) == path) found = path;
    }
    return found == noneValue ? AnsiString() : found;
}

// The reload, the new line and the save happen under one lock, so an entry
// that another program adds meanwhile stays. A file that is not there makes
// no entry: a name must lead to a sound.
AnsiString TGlobals::AddAlert(const AnsiString& path, TStringList& list) {
    if (path.IsEmpty() || path.LowerCase().Pos(".wav") == 0) return {};
    const AnsiString alertsPath = AlertsPath();
    try {
        TFileLock lock(alertsPath);
        if (!LoadAlertsFile(list, alertsPath)) return {};
        const AnsiString value = Utils->ShortPath(path);
        const AnsiString name = AlertName(path);
        if (value.IsEmpty() || name.IsEmpty() || list.IndexOfName(value) >= 0) return {};
        list.Add(name + "=" + value);
        SaveAlertsFile(list, alertsPath);
        return name;
    } catch (const Exception&) {
        Utils->WriteLog("Alert file missing: %s", alertsPath.c_str());
        return {};
    }
}

// current may be a name or a stored value; the combo box always ends on a
// name, the first one when nothing matches.
void TGlobals::FillCombo(const AnsiString& current, TComboBox& combo, const TStringList& list) {
    TStringList names;
    int index = current.IsEmpty() ? -1 : list.IndexOfName(current.UpperCase());
    for (int i = 0; i < list.Count(); ++i) {
        if (!current.IsEmpty() && index < 0) {
            const AnsiString value = ValueAt(list, i);
            if (value == current || value == current.LowerCase()) index = i;
        }
        names.Add(list.GetName(i));
    }
    combo.SetItems(names);
    combo.SetItemIndex(index < 0 ? 0 : index);
}
