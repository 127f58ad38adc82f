// TfrmFilterCriteria: the controls, their captions, help contexts and events.

#include "rules/FilterCriteria.h"

#include "settings/Globals.h"
#include "settings/PanelButtons.h"

TfrmFilterCriteria* frmFilterCriteria = nullptr;

namespace {

TStringList Lines(std::initializer_list<const char*> texts) {
    TStringList lines;
    for (const char* text : texts)
        lines.Add(text);
    return lines;
}

void SetUp(TControl& control, const char* caption, int helpContext, TControl* parent) {
    if (caption) control.SetCaption(caption);
    control.SetHelpContext(helpContext);
    control.SetParent(parent);
}

} // namespace

TfrmFilterCriteria::TfrmFilterCriteria() : TForm("frmFilterCriteria") {
    SetCaption("Filter Editor");
    SetWidth(318);
    SetVisible(false);
    SetUpControls();
    frmFilterCriteria = this;
}

TfrmFilterCriteria::~TfrmFilterCriteria() {
    if (frmFilterCriteria == this) frmFilterCriteria = nullptr;
}

void TfrmFilterCriteria::SetUpControls() {
    SetUp(PageControl1, nullptr, 144, nullptr);
    for (auto [sheet, caption] :
         {std::pair{&tsSelection, "Criteria"}, std::pair{&tsForwarding, "Actions"},
          std::pair{&tsOptions, "Options"}}) {
        sheet->SetCaption(caption);
        sheet->SetParent(&PageControl1);
        PageControl1.AddPage(*sheet);
    }
    PageControl1.SetActivePageIndex(0);
    SetUp(LMDpfAccept, "Apply", 3, nullptr);
    SetUp(LMDpfHelp, "Help", 57, nullptr);
    SetUp(LMDpfCancel, "Close", 58, nullptr);
    LMDpfAccept.OnClick = [this] { LMDpfAcceptClick(); };
    LMDpfHelp.OnClick = [this] { LMDpfHelpClick(); };
    LMDpfCancel.OnClick = [this] { LMDpfCancelClick(); };
    SetUpCriteria();
    SetUpActions();
    SetUpOptions();
    auto deleteEntry = std::make_unique<TMenuItem>("Delete");
    deleteEntry->OnClick = [this](TMenuItem&) { Delete1Click(); };
    Delete1 = &pmManage.Items.Add(std::move(deleteEntry));
    pmManage.OnPopup = [this] { pmManagePopup(); };
}

void TfrmFilterCriteria::SetUpCriteria() {
    SetUp(LMDrgMatchBy, "Match By", 145, &tsSelection);
    LMDrgMatchBy.SetItems(Lines({"Both", "Address", "Subject"}));
    LMDrgMatchBy.Columns = 3;
    LMDrgMatchBy.OnClick = [this] { LMDrgMatchByClick(); };
    LMDrgMatchBy.OnChange = [this] { LMDrgAddressRulesChange(); };

    SetUp(LMDgbAddressEdit, "Address Edit", 0, &tsSelection);
    SetUp(cbMailAddress, nullptr, 146, &LMDgbAddressEdit);
    SetUp(cbAddressTools, nullptr, 148, &LMDgbAddressEdit);
    SetUp(LMDrgAddressRules, nullptr, 149, &LMDgbAddressEdit);
    SetUp(LMDgbSubjectEdit, "Subject Edit", 0, &tsSelection);
    SetUp(cbMailSubject, nullptr, 147, &LMDgbSubjectEdit);
    SetUp(cbSubjectTools, nullptr, 148, &LMDgbSubjectEdit);
    SetUp(LMDrgSubjectRules, nullptr, 149, &LMDgbSubjectEdit);

    cbAddressTools.Style = TComboStyle::csDropDownList;
    cbAddressTools.SetItems(
        Lines({"-None-", "Restore", "Clear", "Mailer Name", "Mailer ID", "Mailer ISP"}));
    cbSubjectTools.Style = TComboStyle::csDropDownList;
    cbSubjectTools.SetItems(Lines({"-None-", "Restore", "Clear"}));
    cbAddressTools.OnChange = [this] { cbAddressToolsChange(); };
    cbSubjectTools.OnChange = [this] { cbSubjectToolsChange(); };
    for (TRadioGroup* rules : {&LMDrgAddressRules, &LMDrgSubjectRules}) {
        rules->SetItems(Lines({"Contains", "Exact Match"}));
        rules->Columns = 2;
        rules->OnClick = [this] { ActivateApply(); };
        rules->OnChange = [this] { LMDrgAddressRulesChange(); };
    }
    for (TComboBox* combo : {&cbMailAddress, &cbMailSubject})
        combo->OnChange = [this] { ActivateApply(); };
}

void TfrmFilterCriteria::SetUpActions() {
    SetUp(LMDgbAudioAlert, "E-mail Audio Alert", 0, &tsForwarding);
    SetUp(LMDpfBrowseAlert1, "Browse for Audio Alert", 110, &LMDgbAudioAlert);
    SetUp(sbAuditionAlert, nullptr, 111, &LMDgbAudioAlert);
    SetUp(LMDcmbMailArrival, nullptr, 112, &LMDgbAudioAlert);
    LMDcmbMailArrival.Style = TComboStyle::csDropDownList;
    LMDpfBrowseAlert1.OnClick = [this] { LMDpfBrowseAlert1Click(); };
    sbAuditionAlert.OnClick = [this] { sbAuditionAlertClick(); };

    SetUp(LMDgbMsgForwording, "Message Forwarding", 0, &tsForwarding);
    SetUp(LMDcbForwardMsg, "Forward this message", 150, &LMDgbMsgForwording);
    SetUp(cbFwdAddress, nullptr, 151, &LMDgbMsgForwording);
    SetUp(LMDcbToCellPhone, "Forward is to a Mobil Phone", 153, &LMDgbMsgForwording);
    SetUp(LMDseMsgSize, nullptr, 168, &LMDgbMsgForwording);
    LMDseMsgSize.MinValue = 1;
    LMDseMsgSize.MaxValue = 200;
    LMDseMsgSize.SetValue(120);
    for (TComboBox* combo : {&LMDcmbMailArrival, &cbFwdAddress})
        combo->OnChange = [this] { ActivateApply(); };
    LMDseMsgSize.OnChange = [this] { ActivateApply(); };
}

void TfrmFilterCriteria::SetUpOptions() {
    SetUp(LMDGroupBox1, "Save Options", 0, &tsOptions);
    SetUp(LMDcbDeleteMsg, "Delete message from server", 152, &LMDGroupBox1);
    SetUp(LMDcbSaveMsg, "Save message to Inbox", 153, &LMDGroupBox1);
    SetUp(LMDcbSaveAltFolder, "Auto Save to Alternate Folder", 171, &LMDGroupBox1);
    SetUp(LMDpfBrowseFolder, "Browse for Folder", 170, &LMDGroupBox1);
    SetUp(LMDcbAltFolder, nullptr, 169, &LMDGroupBox1);
    LMDcbSaveAltFolder.OnChange = [this] { LMDcbSaveAltFolderChange(); };
    LMDpfBrowseFolder.OnClick = [this] { LMDpfBrowseFolderClick(); };
    LMDcbAltFolder.OnChange = [this] { ActivateApply(); };
    for (TCheckBox* box : {&LMDcbForwardMsg, &LMDcbToCellPhone, &LMDcbDeleteMsg, &LMDcbSaveMsg})
        box->OnChange = [this] { ActivateApply(); };
}

void TfrmFilterCriteria::PageControl1Resize() {
    PageControl1.SetTabWidth((PageControl1.Width() - 15) / 3);
}

void TfrmFilterCriteria::LMDcbSaveAltFolderChange() {
    ActivateApply();
    const bool on = LMDcbSaveAltFolder.Checked();
    LMDpfBrowseFolder.SetEnabled(on);
    LMDcbAltFolder.SetEnabled(on);
}

void TfrmFilterCriteria::LMDpfHelpClick() {
    if (!PButtons->ButtonPress(LMDpfHelp)) return;
    Globals->RunSystemHelp();
    PButtons->ButtonRelease(LMDpfHelp);
}
