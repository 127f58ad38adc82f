#include "forwarding/SendToForm.h"

#include "forwarding/SMTPFunc.h"
#include "foundation/ListFile.h"
#include "foundation/Utils.h"
#include "settings/ConfigRecord.h"
#include "settings/Globals.h"
#include "settings/PanelButtons.h"

TfrmSendTo* frmSendTo = nullptr;

TfrmSendTo::TfrmSendTo() : TForm("frmSendTo") {
    SetUpControls();
    FormCreate();
}

TfrmSendTo::~TfrmSendTo() {
    FormDestroy();
}

void TfrmSendTo::SetUpControls() {
    SetCaption("Send To");
    SetVisible(false);
    LMDPanelFill2.SetCaption("Forward Message");
    LMDcbSendTo.SetHelpContext(164);
    LMDeSubject.SetHelpContext(165);
    mMsgBody.SetHelpContext(166);
    LMDpfSend.SetCaption("Send");
    LMDpfSend.SetHelpContext(167);
    LMDpfLoad.SetHelpContext(143);
    LMDpfHelp.SetCaption("Help");
    LMDpfHelp.SetHelpContext(57);
    LMDpfCancel.SetCaption("Cancel");
    LMDpfCancel.SetHelpContext(142);
    for (TPanelButton* button : {&LMDpfSend, &LMDpfHelp, &LMDpfCancel})
        button->SetCursor(crHandPoint);
    LMDpfSend.OnClick = [this] { LMDpfSendClick(); };
    LMDpfCancel.OnClick = [this] { LMDpfCancelClick(); };
    LMDpfHelp.OnClick = [this] { LMDpfHelpClick(); };
    // The window's close button does not end a send that runs: the send
    // finishes and closes the window itself.
    OnWindowClose = [this] {
        if (!sending) Close();
    };
}

void TfrmSendTo::FormCreate() {
    ownedSMTPFunc = std::make_unique<TSMTPFunc>();
    SMTPFunc = ownedSMTPFunc.get();
    SMTPFunc->StatusControl = &LMDpfStatusBar;
}

void TfrmSendTo::FormDestroy() {
    if (SMTPFunc == ownedSMTPFunc.get()) SMTPFunc = nullptr;
    ownedSMTPFunc.reset();
}

void TfrmSendTo::OpenForward(const AnsiString& messageFile, const AnsiString& sender) {
    MessageFile = messageFile;
    SenderText = sender;
    const AnsiString path = Utils->AddBackslash(Globals->DataFolder) + "AddressBook.ini";
    LMDcbSendTo.ClearItems();
    // No history yet: the list starts empty. One that is there but cannot be
    // read whole (a NUL byte, too big) starts it empty too, and is not
    // written over with what was not read.
    bool keepFile = false;
    try {
        TStringList history;
        if (LoadExistingListFile(history, path)) LMDcbSendTo.SetItems(history);
    } catch (...) {
        keepFile = true;
    }
    mMsgBody.SetText("");
    ShowModal();
    TStringList items = LMDcbSendTo.Items();
    if (items.IndexOf(LMDcbSendTo.Text()) < 0) items.Add(LMDcbSendTo.Text());
    LMDcbSendTo.SetItems(items);
    if (!keepFile) items.SaveToFile(path);
}

// The file's text goes whole into the body list, its header lines included.
void TfrmSendTo::FillPost() {
    TPostMessage& post = *SMTPFunc->Post;
    post.FromAddress = SenderText;
    post.ToAddress.SetText(LMDcbSendTo.Text());
    TStringList file;
    file.LoadFromFile(MessageFile);
    post.Body.SetText(file.GetText());
    post.Attachments.SetText("");
    post.Subject = LMDeSubject.Text();
    post.Date = Utils->TimeStamp();
}

void TfrmSendTo::LMDpfSendClick() {
    if (!PButtons->ButtonPress(LMDpfSend)) return;
    LMDpfSend.SetCursor(crHourGlass);
    sending = true;
    try {
        FillPost();
    } catch (...) {
        // The file could not be read: nothing is sent and the window stays
        // open. The button is made ready again so the user can try again.
        sending = false;
        LMDpfSend.SetCursor(crHandPoint);
        PButtons->ButtonRelease(LMDpfSend);
        throw;
    }
    bool failed = false;
    try {
        SMTPFunc->SendPost(Globals->Config.Bytes.data() + ConfigRecord::smtpBlock,
                           mMsgBody.Lines());
    } catch (...) {
        failed = true;
    }
    sending = false;
    Utils->Delay(200);
    LMDpfSend.SetCursor(crHandPoint);
    PButtons->ButtonRelease(LMDpfSend);
    if (!failed) Close();
}

void TfrmSendTo::LMDpfCancelClick() {
    if (sending || !PButtons->ButtonPress(LMDpfCancel)) return;
    Close();
    Utils->Delay(200);
    PButtons->ButtonRelease(LMDpfCancel);
}

void TfrmSendTo::LMDpfHelpClick() {
    if (!PButtons->ButtonPress(LMDpfHelp)) return;
    Globals->RunSystemHelp();
    PButtons->ButtonRelease(LMDpfHelp);
}
