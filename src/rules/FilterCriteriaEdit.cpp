// TfrmFilterCriteria: opening on a rule, the criteria tab, and Apply.

#include "foundation/Utils.h"
#include "platform/Dialogs.h"
#include "rules/FilterCriteria.h"
#include "rules/RuleRecord.h"
#include "rules/RuleText.h"
#include "settings/Globals.h"
#include "settings/PanelButtons.h"

namespace {

constexpr int baseWidth = 318;
constexpr int pageMargin = 8; // the page control's border inside the window

bool Flag(const AnsiString& options, int position) {
    return options.SubString(position, 1).ToIntDef(0) != 0;
}

// "0" Contains or "1" Exact Match; any other number counts as the default.
int MatchRule(const AnsiString& field) {
    const int index = field.ToIntDef(0);
    return index == 1 ? 1 : 0;
}

} // namespace

bool TfrmFilterCriteria::EditRule(TStringList& list) {
    ResetControls();
    ReadParameters(list);
    Applied = false;
    TStringList choices;
    FillAddressChoices(choices);
    cbMailAddress.SetItems(choices);
    cbMailAddress.SetItemIndex(0);
    FillSubjectChoices(choices);
    cbMailSubject.SetItems(choices);
    cbMailSubject.SetItemIndex(0);
    FitWidth();
    SetMatchByState();
    Alerts = std::make_unique<TStringList>();
    Globals->LoadAlerts(*Alerts);
    LMDpfAccept.SetEnabled(true);
    Globals->FillCombo(alertName, LMDcmbMailArrival, *Alerts);
    SyncAddressBook(true);
    SyncAltPaths(true);
    cbAddressTools.SetItemIndex(0);
    cbSubjectTools.SetItemIndex(0);
    PageControl1.SetActivePageIndex(0);
    ShowModal();
    if (Applied) WriteParameters(list);
    Alerts.reset();
    return Applied;
}

void TfrmFilterCriteria::ResetControls() {
    LMDrgAddressRules.SetItemIndex(0);
    LMDrgSubjectRules.SetItemIndex(0);
    GivenAddress = GivenSubject = alertName = AnsiString();
    for (TComboBox* combo : {&cbFwdAddress, &LMDcbAltFolder})
        combo->SetText("");
    for (TCheckBox* box :
         {&LMDcbForwardMsg, &LMDcbToCellPhone, &LMDcbDeleteMsg, &LMDcbSaveMsg, &LMDcbSaveAltFolder})
        box->SetChecked(false);
    LMDseMsgSize.SetValue(120);
    LMDpfBrowseFolder.SetEnabled(false);
    LMDcbAltFolder.SetEnabled(false);
}

// A line that is missing, or shorter than the positions read from it, gives
// the defaults of those positions.
void TfrmFilterCriteria::ReadParameters(const TStringList& list) {
    const RuleRecord rule = RuleRecord::FromList(list);
    GivenAddress = rule[RuleRecord::Address];
    GivenSubject = rule[RuleRecord::Subject];
    LMDrgAddressRules.SetItemIndex(MatchRule(rule[RuleRecord::AddressRule]));
    LMDrgSubjectRules.SetItemIndex(MatchRule(rule[RuleRecord::SubjectRule]));
    cbFwdAddress.SetText(rule[RuleRecord::ForwardAddress]);
    cbFwdAddress.SetHint(rule[RuleRecord::ForwardAddress]);
    const AnsiString& forward = rule[RuleRecord::ForwardOptions];
    LMDcbForwardMsg.SetChecked(Flag(forward, 1));
    LMDcbToCellPhone.SetChecked(Flag(forward, 2));
    LMDseMsgSize.SetValue(forward.SubString(3, 3).ToIntDef(120));
    const AnsiString& save = rule[RuleRecord::SaveOptions];
    LMDcbSaveMsg.SetChecked(Flag(save, 1));
    LMDcbDeleteMsg.SetChecked(Flag(save, 2));
    LMDcbSaveAltFolder.SetChecked(Flag(save, 3));
    LMDcbAltFolder.SetText(rule[RuleRecord::AltFolder]);
    LMDcbAltFolder.SetHint(rule[RuleRecord::AltFolder]);
    if (LMDcbSaveAltFolder.Checked()) {
        LMDpfBrowseFolder.SetEnabled(true);
        LMDcbAltFolder.SetEnabled(true);
    }
    alertName = rule[RuleRecord::AlertName];
}

// 318 pixels hold 37 bytes of text; a longer address or subject widens the
// window by 8 pixels a byte.
void TfrmFilterCriteria::FitWidth() {
    const int longest = std::max(GivenAddress.Length(), GivenSubject.Length());
    SetWidth(baseWidth);
    if (longest * 8 + 16 > Width()) SetWidth(longest * 8 + 32);
    PageControl1.SetWidth(Width() - pageMargin);
    PageControl1Resize();
}

// Setting the item index here acts as a click in the group would, so the
// two combo boxes always match what Match By shows. A group disabled here
// stays so until the dialog closes.
void TfrmFilterCriteria::SetMatchByState() {
    SetMatchBy(0);
    LMDgbAddressEdit.SetEnabled(true);
    LMDgbSubjectEdit.SetEnabled(true);
    if (GivenAddress.IsEmpty()) {
        LMDgbAddressEdit.SetEnabled(false);
        SetMatchBy(2);
    }
    if (GivenSubject.IsEmpty()) {
        LMDgbSubjectEdit.SetEnabled(false);
        SetMatchBy(1);
    }
}

void TfrmFilterCriteria::SetMatchBy(int index) {
    LMDrgMatchBy.SetItemIndex(index);
    LMDrgMatchByClick();
}

void TfrmFilterCriteria::LMDrgMatchByClick() {
    const int index = LMDrgMatchBy.ItemIndex();
    auto offer = [](TComboBox& combo, bool on, const AnsiString& given) {
        combo.SetEnabled(on);
        if (!on)
            combo.SetText("");
        else if (combo.Text().IsEmpty())
            combo.SetText(given);
    };
    offer(cbMailAddress, index != 2, GivenAddress);
    offer(cbMailSubject, index != 1, GivenSubject);
}

void TfrmFilterCriteria::cbAddressToolsChange() {
    switch (cbAddressTools.ItemIndex()) {
    case 1:
        cbMailAddress.SetText(GivenAddress);
        break;
    case 2:
        cbMailAddress.SetText("");
        break;
    case 3:
        cbMailAddress.SetText(AddressPart(GivenAddress, TAddressPart::MailerName));
        break;
    case 4:
        cbMailAddress.SetText(AddressPart(GivenAddress, TAddressPart::MailerId));
        break;
    case 5:
        cbMailAddress.SetText(AddressPart(GivenAddress, TAddressPart::MailerIsp));
        break;
    default:
        break;
    }
    ActivateApply();
}

void TfrmFilterCriteria::cbSubjectToolsChange() {
    if (cbSubjectTools.ItemIndex() == 1) cbMailSubject.SetText(GivenSubject);
    if (cbSubjectTools.ItemIndex() == 2) cbMailSubject.SetText("");
}

int TfrmFilterCriteria::FillAddressChoices(TStringList& items) const {
    return ::FillAddressChoices(GivenAddress, items);
}

int TfrmFilterCriteria::FillSubjectChoices(TStringList& items) const {
    return ::FillSubjectChoices(GivenSubject, items);
}

// A history file that cannot be written raises here: the button is given
// back, and the dialog stays open with nothing applied.
void TfrmFilterCriteria::LMDpfAcceptClick() {
    if (!PButtons->ButtonPress(LMDpfAccept)) return;
    try {
        if (cbMailAddress.Text().IsEmpty() && cbMailSubject.Text().IsEmpty()) {
            if (Dialogs) Dialogs->ShowMessage("You can't apply when address and subject are empty");
        } else {
            SyncAddressBook(false);
            SyncAltPaths(false);
            Applied = true;
            Close();
        }
    } catch (...) {
        PButtons->ButtonRelease(LMDpfAccept);
        throw;
    }
    PButtons->ButtonRelease(LMDpfAccept);
}

void TfrmFilterCriteria::LMDpfCancelClick() {
    if (!PButtons->ButtonPress(LMDpfCancel)) return;
    Applied = false;
    Close();
    PButtons->ButtonRelease(LMDpfCancel);
}

void TfrmFilterCriteria::WriteParameters(TStringList& list) const {
    RuleRecord rule;
    rule[RuleRecord::Address] = cbMailAddress.Text();
    rule[RuleRecord::Subject] = cbMailSubject.Text();
    rule[RuleRecord::AlertName] = LMDcmbMailArrival.Text();
    rule[RuleRecord::AddressRule] = AnsiString(std::to_string(LMDrgAddressRules.ItemIndex()));
    rule[RuleRecord::SubjectRule] = AnsiString(std::to_string(LMDrgSubjectRules.ItemIndex()));
    rule[RuleRecord::ForwardOptions] = RuleRecord::FormatForwardOptions(
        LMDcbForwardMsg.Checked(), LMDcbToCellPhone.Checked(), LMDseMsgSize.Value());
    rule[RuleRecord::ForwardAddress] = cbFwdAddress.Text();
    rule[RuleRecord::SaveOptions] = RuleRecord::FormatSaveOptions(
        LMDcbSaveMsg.Checked(), LMDcbDeleteMsg.Checked(), LMDcbSaveAltFolder.Checked());
    rule[RuleRecord::AltFolder] = LMDcbAltFolder.Text();
    rule.ToList(list);
}
