// TfrmFilterCriteria: choosing a sound file for the rule and listening to it.

#include "foundation/Utils.h"
#include "platform/Dialogs.h"
#include "platform/Sound.h"
#include "rules/FilterCriteria.h"
#include "settings/Globals.h"
#include "settings/PanelButtons.h"

// The choice starts in "My Alerts" of the documents folder; a file that makes
// no entry (not a ".wav", gone) leaves the combo box on its first line.
bool TfrmFilterCriteria::BrowseForAlert(TComboBox& combo) {
    const AnsiString start = Utils->AddBackslash(Utils->GetSpecialFolder(5)) + "My Alerts";
    const AnsiString chosen =
        Dialogs ? Dialogs->OpenFile(AlertDialogTitle, start, AlertDialogFilter) : AnsiString();
    if (chosen.IsEmpty() || !Alerts) return false;
    const AnsiString name = Globals->AddAlert(chosen, *Alerts);
    combo.SetHint(name);
    Globals->FillCombo(name, combo, *Alerts);
    return true;
}

// Plays to the end before it returns: the dialog takes no input meanwhile.
void TfrmFilterCriteria::PlayAlert(const AnsiString& name, const TStringList& list) {
    const AnsiString path = Globals->FindAlert(name, list);
    if (path.IsEmpty() || path == "-none-") return;
    if (Sound) Sound->PlayFile(path);
}

void TfrmFilterCriteria::LMDpfBrowseAlert1Click() {
    if (!PButtons->ButtonPress(LMDpfBrowseAlert1)) return;
    BrowseForAlert(LMDcmbMailArrival);
    PButtons->ButtonRelease(LMDpfBrowseAlert1);
}

void TfrmFilterCriteria::sbAuditionAlertClick() {
    if (Alerts) PlayAlert(LMDcmbMailArrival.Text(), *Alerts);
}
