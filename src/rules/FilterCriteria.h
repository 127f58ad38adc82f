#pragma once
// TfrmFilterCriteria: the Filter Editor, the modal dialog in which one rule
// is shaped. It is given a sender and a subject on a nine-line parameter
// list, offers ready cuts of both, collects the rule's actions on three tabs
// and hands the nine fields back. It keeps two history files in the shared
// folder, AddressBook.ini and AltPath.ini, for its forwarding and folder
// combo boxes. Everything here runs against control models.

#include <memory>

#include "controls/CheckBox.h"
#include "controls/ComboBox.h"
#include "controls/Form.h"
#include "controls/PageControl.h"
#include "controls/Panel.h"
#include "controls/PanelButton.h"
#include "controls/PopupMenu.h"
#include "controls/RadioGroup.h"
#include "controls/SpeedButton.h"
#include "controls/SpinEdit.h"
#include "foundation/StringList.h"

class TfrmFilterCriteria : public TForm {
public:
    // The one instance is reached through frmFilterCriteria while it lives.
    TfrmFilterCriteria();
    ~TfrmFilterCriteria() override;

    // Shows the dialog on a nine-line parameter list. True: the user applied
    // and list holds the edited rule; false: list is unchanged.
    bool EditRule(TStringList& list);

    // --- Event handlers
    void LMDpfAcceptClick();
    void LMDpfCancelClick();
    void LMDpfHelpClick();
    void LMDrgMatchByClick();
    void LMDrgAddressRulesChange() { ActivateApply(); }
    void ActivateApply() { LMDpfAccept.SetEnabled(true); }
    void cbAddressToolsChange();
    void cbSubjectToolsChange();
    void LMDcbSaveAltFolderChange();
    void LMDpfBrowseFolderClick();
    void LMDpfBrowseAlert1Click();
    void sbAuditionAlertClick();
    void pmManagePopup();
    void Delete1Click();
    void PageControl1Resize();

    // --- Text work and files
    int FillAddressChoices(TStringList& items) const;
    int FillSubjectChoices(TStringList& items) const;
    void SyncAddressBook(bool load);
    void SyncAltPaths(bool load);

    // --- Audio alerts
    bool BrowseForAlert(TComboBox& combo);
    void PlayAlert(const AnsiString& name, const TStringList& list);

    // Controls, named as the window names them. Groups are panels that hold
    // the controls inside them.
    TPageControl PageControl1{this, "PageControl1"};
    TTabSheet tsSelection{this, "tsSelection"};
    TTabSheet tsForwarding{this, "tsForwarding"};
    TTabSheet tsOptions{this, "tsOptions"};
    TPanelButton LMDpfAccept{this, "LMDpfAccept"};
    TPanel LMDpfAlert{this, "LMDpfAlert"};
    TPanelButton LMDpfHelp{this, "LMDpfHelp"};
    TPanelButton LMDpfCancel{this, "LMDpfCancel"};

    TRadioGroup LMDrgMatchBy{this, "LMDrgMatchBy"};
    TPanel LMDgbAddressEdit{this, "LMDgbAddressEdit"};
    TComboBox cbMailAddress{this, "cbMailAddress"};
    TComboBox cbAddressTools{this, "cbAddressTools"};
    TRadioGroup LMDrgAddressRules{this, "LMDrgAddressRules"};
    TPanel LMDgbSubjectEdit{this, "LMDgbSubjectEdit"};
    TComboBox cbMailSubject{this, "cbMailSubject"};
    TComboBox cbSubjectTools{this, "cbSubjectTools"};
    TRadioGroup LMDrgSubjectRules{this, "LMDrgSubjectRules"};

    TPanel LMDgbAudioAlert{this, "LMDgbAudioAlert"};
    TPanelButton LMDpfBrowseAlert1{this, "LMDpfBrowseAlert1"};
    TSpeedButton sbAuditionAlert{this, "sbAuditionAlert"};
    TComboBox LMDcmbMailArrival{this, "LMDcmbMailArrival"};
    TPanel LMDgbMsgForwording{this, "LMDgbMsgForwording"};
    TCheckBox LMDcbForwardMsg{this, "LMDcbForwardMsg"};
    TComboBox cbFwdAddress{this, "cbFwdAddress"};
    TCheckBox LMDcbToCellPhone{this, "LMDcbToCellPhone"};
    TSpinEdit LMDseMsgSize{this, "LMDseMsgSize"};

    TPanel LMDGroupBox1{this, "LMDGroupBox1"};
    TCheckBox LMDcbDeleteMsg{this, "LMDcbDeleteMsg"};
    TCheckBox LMDcbSaveMsg{this, "LMDcbSaveMsg"};
    TCheckBox LMDcbSaveAltFolder{this, "LMDcbSaveAltFolder"};
    TPanelButton LMDpfBrowseFolder{this, "LMDpfBrowseFolder"};
    TComboBox LMDcbAltFolder{this, "LMDcbAltFolder"};

    TPopupMenu pmManage{this, "pmManage"};
    TMenuItem* Delete1 = nullptr;

    // The labels beside the controls, as the screen shows them.
    static constexpr const char* QuickEditsLabel = "Quick Edits";
    static constexpr const char* MailArrivalLabel = "Audio Alert for priority mail arrival";
    static constexpr const char* FwdAddressLabel = "Destination Address";
    static constexpr const char* MsgSizeLabel = "Maximum Message Size:";
    static constexpr const char* AltFolderLabel = "Path to Alternate Save Folder";
    // The titles and filter of the two file choices.
    static constexpr const char* AlertDialogTitle = "Open Audio File";
    static constexpr const char* AlertDialogFilter = "*.wav|*.wav|All Files|*.*";
    static constexpr const char* FolderDialogTitle = "Set Path to Alternet Inbox";

    // Fields
    AnsiString GivenAddress;
    AnsiString GivenSubject;
    bool Applied = false;
    // Which combo box pmManage last opened on: 0 none yet, 1 cbFwdAddress,
    // 2 LMDcbAltFolder. Kept from one opening to the next.
    int ManageMode = 0;
    // The entries of Alerts.ini, while EditRule runs.
    std::unique_ptr<TStringList> Alerts;

private:
    void SetUpControls();
    void SetUpCriteria();
    void SetUpActions();
    void SetUpOptions();
    void ResetControls();
    void ReadParameters(const TStringList& list);
    void FitWidth();
    void SetMatchByState();
    void SetMatchBy(int index);
    void WriteParameters(TStringList& list) const;
    void SyncHistory(TComboBox& combo, const char* fileName, bool load);
    void DeleteHistoryEntry(TComboBox& combo, const char* fileName);
    AnsiString HistoryPath(const char* fileName) const;

    AnsiString alertName; // line 2 of the list, while EditRule runs
};

extern TfrmFilterCriteria* frmFilterCriteria;
