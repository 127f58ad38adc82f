#include "gui/SendToDialog.h"

#include "forwarding/SendToForm.h"
#include "gui/PanelBinding.h"

TSendToDialog::TSendToDialog(TfrmSendTo& form, QWidget* parent)
    : TModalDialog(form, parent), sendTo(form), send(form.LMDpfSend), help(form.LMDpfHelp),
      cancel(form.LMDpfCancel), toBinding(form.LMDcbSendTo, to),
      subjectBinding(form.LMDeSubject, subject), noteBinding(form.mMsgBody, note) {
    setObjectName("frmSendTo");
    setWindowFlag(Qt::WindowContextHelpButtonHint);
    layout.setContentsMargins(6, 6, 6, 6);
    LayOutTitleBand();
    note.setObjectName("mMsgBody");
    layout.addWidget(&note, 1);
    LayOutButtons();
    resize(460, 340);
}

std::unique_ptr<TModalDialog> TSendToDialog::Create(TForm& form) {
    return std::make_unique<TSendToDialog>(static_cast<TfrmSendTo&>(form));
}

void TSendToDialog::LayOutTitleBand() {
    title.setObjectName("LMDPanelFill2");
    titleBand.setFrameShape(QFrame::StyledPanel);
    BindPanel(sendTo.LMDPanelFill2, title);
    QFont bold = title.font();
    bold.setBold(true);
    title.setFont(bold);
    to.setObjectName("LMDcbSendTo");
    to.setEditable(true);
    subject.setObjectName("LMDeSubject");
    titleGrid.addWidget(&title, 0, 0, 1, 2);
    titleGrid.addWidget(&toLabel, 1, 0);
    titleGrid.addWidget(&to, 1, 1);
    titleGrid.addWidget(&subjectLabel, 2, 0);
    titleGrid.addWidget(&subject, 2, 1);
    layout.addWidget(&titleBand);
}

void TSendToDialog::LayOutButtons() {
    buttonRow.setContentsMargins(0, 2, 0, 0);
    buttonRow.setSpacing(4);
    filler.setObjectName("LMDpfLoad");
    send.setObjectName("LMDpfSend");
    help.setObjectName("LMDpfHelp");
    cancel.setObjectName("LMDpfCancel");
    buttonRow.addWidget(&send);
    buttonRow.addWidget(&filler, 1);
    buttonRow.addWidget(&help);
    buttonRow.addWidget(&cancel);
    layout.addWidget(&buttonBar);
    status.setObjectName("LMDpfStatusBar");
    status.setFrameShape(QFrame::StyledPanel);
    BindPanel(sendTo.LMDpfStatusBar, status);
    layout.addWidget(&status);
}
