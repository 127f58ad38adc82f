// TfrmFilterCriteria: the two history files (AddressBook.ini, AltPath.ini in
// the shared folder), their Delete entry, and the folder choice.
//
// A history file is read at opening and written on Apply and on Delete. A
// write goes through the file's lock and reloads the file first, so an entry
// that another program added meanwhile stays; a file that is there but
// cannot be read is never replaced.

#include "foundation/FileLock.h"
#include "foundation/ListFile.h"
#include "foundation/Utils.h"
#include "platform/Dialogs.h"
#include "rules/FilterCriteria.h"
#include "settings/Globals.h"
#include "settings/PanelButtons.h"

namespace {

constexpr const char* addressBookFile = "AddressBook.ini";
constexpr const char* altPathFile = "AltPath.ini";

} // namespace

AnsiString TfrmFilterCriteria::HistoryPath(const char* fileName) const {
    return Utils->AddBackslash(Globals->Config.SharedFolder()) + fileName;
}

void TfrmFilterCriteria::SyncAddressBook(bool load) {
    SyncHistory(cbFwdAddress, addressBookFile, load);
}

void TfrmFilterCriteria::SyncAltPaths(bool load) {
    SyncHistory(LMDcbAltFolder, altPathFile, load);
}

// Loading leaves the combo box's text alone. A file that cannot be made at
// opening (no shared folder) leaves the list empty; the save on Apply then
// reports why.
void TfrmFilterCriteria::SyncHistory(TComboBox& combo, const char* fileName, bool load) {
    const AnsiString path = HistoryPath(fileName);
    TStringList items;
    if (load) {
        try {
            if (!LoadExistingListFile(items, path)) items.SaveToFile(path);
        } catch (const Exception&) {
            items.Clear();
        }
        combo.SetItems(items);
        return;
    }
    TFileLock lock(path);
    if (!LoadExistingListFile(items, path)) items = combo.Items();
    if (!combo.Text().IsEmpty() && items.IndexOf(combo.Text()) < 0) items.Add(combo.Text());
    items.SaveToFile(path);
    combo.SetItems(items);
}

void TfrmFilterCriteria::pmManagePopup() {
    Delete1->Enabled = true;
    if (ActiveControl() == &cbFwdAddress) {
        ManageMode = 1;
        if (cbFwdAddress.Text().IsEmpty()) Delete1->Enabled = false;
    } else if (ActiveControl() == &LMDcbAltFolder) {
        ManageMode = 2;
        if (LMDcbAltFolder.Text().IsEmpty()) Delete1->Enabled = false;
    }
}

void TfrmFilterCriteria::Delete1Click() {
    if (ManageMode == 1) DeleteHistoryEntry(cbFwdAddress, addressBookFile);
    if (ManageMode == 2) DeleteHistoryEntry(LMDcbAltFolder, altPathFile);
}

// The entry goes from the list and the file for good; the text and hint are
// emptied even when the text was no entry.
void TfrmFilterCriteria::DeleteHistoryEntry(TComboBox& combo, const char* fileName) {
    if (combo.Items().IndexOf(combo.Text()) >= 0) {
        const AnsiString path = HistoryPath(fileName);
        TFileLock lock(path);
        TStringList items;
        if (!LoadExistingListFile(items, path)) items = combo.Items();
        for (int i = items.IndexOf(combo.Text()); i >= 0; i = items.IndexOf(combo.Text()))
            items.Delete(i);
        items.SaveToFile(path);
        combo.SetItems(items);
    }
    combo.SetText("");
    combo.SetHint("");
}

void TfrmFilterCriteria::LMDpfBrowseFolderClick() {
    if (!PButtons->ButtonPress(LMDpfBrowseFolder)) return;
    const AnsiString start =
        LMDcbAltFolder.Text().IsEmpty() ? Globals->Config.SharedFolder() : LMDcbAltFolder.Text();
    const AnsiString chosen = Dialogs ? Dialogs->BrowseForFolder(FolderDialogTitle, start) : "";
    if (!chosen.IsEmpty()) {
        LMDcbAltFolder.SetText(chosen);
        LMDcbAltFolder.SetHint(chosen);
    }
    PButtons->ButtonRelease(LMDpfBrowseFolder);
}
