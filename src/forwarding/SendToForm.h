#pragma once
// TfrmSendTo: the modal "Send To" dialog through which the selected saved
// message is forwarded. It does not show the message: the file on disk goes
// out whole with the note in front of its body, through TSMTPFunc. It keeps
// a history of recipients in AddressBook.ini in the data folder; "To:" and
// "Subject" keep their texts across openings, the note starts empty.

#include <memory>

#include "controls/ComboBox.h"
#include "controls/Edit.h"
#include "controls/Form.h"
#include "controls/Memo.h"
#include "controls/Panel.h"
#include "controls/PanelButton.h"
#include "foundation/AnsiString.h"

class TSMTPFunc;

class TfrmSendTo : public TForm {
public:
    TfrmSendTo();
    ~TfrmSendTo() override;

    void FormCreate();
    void FormDestroy();
    // Shows the dialog modally and returns when it has closed.
    void OpenForward(const AnsiString& messageFile, const AnsiString& sender);
    void LMDpfSendClick();
    void LMDpfCancelClick();
    void LMDpfHelpClick();
    // True while a send runs; the window waits for it with the message loop going.
    bool Sending() const { return sending; }

    TPanel LMDPanelFill2{this, "LMDPanelFill2"};
    TComboBox LMDcbSendTo{this, "LMDcbSendTo"};
    TEdit LMDeSubject{this, "LMDeSubject"};
    TMemo mMsgBody{this, "mMsgBody"};
    TPanelButton LMDpfSend{this, "LMDpfSend"};
    TPanel LMDpfLoad{this, "LMDpfLoad"};
    TPanelButton LMDpfHelp{this, "LMDpfHelp"};
    TPanelButton LMDpfCancel{this, "LMDpfCancel"};
    TPanel LMDpfStatusBar{this, "LMDpfStatusBar"};

    AnsiString MessageFile;
    AnsiString SenderText;

private:
    void SetUpControls();
    void FillPost();

    std::unique_ptr<TSMTPFunc> ownedSMTPFunc;
    bool sending = false;
};

extern TfrmSendTo* frmSendTo;
