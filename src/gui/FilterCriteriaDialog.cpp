#include "gui/FilterCriteriaDialog.h"

#include <QKeyEvent>
#include <QStyle>
#include <QWhatsThis>

#include "gui/ControlBinding.h"
#include "gui/QtDialogs.h"
#include "gui/QtText.h"
#include "platform/Application.h"
#include "rules/FilterCriteria.h"
#include "settings/Globals.h"
#include "settings/PanelButtons.h"

TFilterCriteriaDialog::TFilterCriteriaDialog(TfrmFilterCriteria& form, QWidget* parent)
    : TModalDialog(form, parent), form(form), browseAlert(form.LMDpfBrowseAlert1),
      browseFolder(form.LMDpfBrowseFolder), accept(form.LMDpfAccept), help(form.LMDpfHelp),
      cancel(form.LMDpfCancel), tabsBinding(form.PageControl1, tabs),
      matchByBinding(form.LMDrgMatchBy, matchBy),
      addressRulesBinding(form.LMDrgAddressRules, addressRules),
      subjectRulesBinding(form.LMDrgSubjectRules, subjectRules),
      mailAddressBinding(form.cbMailAddress, mailAddress),
      addressToolsBinding(form.cbAddressTools, addressTools),
      mailSubjectBinding(form.cbMailSubject, mailSubject),
      subjectToolsBinding(form.cbSubjectTools, subjectTools),
      mailArrivalBinding(form.LMDcmbMailArrival, mailArrival),
      fwdAddressBinding(form.cbFwdAddress, fwdAddress),
      altFolderBinding(form.LMDcbAltFolder, altFolder),
      forwardMsgBinding(form.LMDcbForwardMsg, forwardMsg),
      toCellPhoneBinding(form.LMDcbToCellPhone, toCellPhone),
      deleteMsgBinding(form.LMDcbDeleteMsg, deleteMsg), saveMsgBinding(form.LMDcbSaveMsg, saveMsg),
      saveAltFolderBinding(form.LMDcbSaveAltFolder, saveAltFolder),
      msgSizeBinding(form.LMDseMsgSize, msgSize) {
    setObjectName("frmFilterCriteria");
    setWindowFlag(Qt::WindowContextHelpButtonHint);
    layout.setContentsMargins(4, 4, 4, 4);
    tabs.setObjectName("PageControl1");
    tabs.addTab(&criteria, ToQString(form.tsSelection.Caption()));
    tabs.addTab(&actions, ToQString(form.tsForwarding.Caption()));
    tabs.addTab(&options, ToQString(form.tsOptions.Caption()));
    layout.addWidget(&tabs, 1);
    LayOutCriteria();
    LayOutActions();
    LayOutOptions();
    LayOutButtons();
    WatchHelp(tabs, form.PageControl1);
    SetTabOrder();
    FollowForm();
    subscription = form.Subscribe([this](TControl&, TChange) { FollowForm(); });
    connect(&helpKey, &QShortcut::activated, this, [] {
        if (Application)
            Application->DispatchMessage({TApplication::wmNcLButtonDown, TApplication::htHelp});
    });
    // Boxes the editor shows while it is open stand in front of it.
    if (auto* dialogs = dynamic_cast<TQtDialogs*>(Dialogs)) {
        dialogsParent = dialogs->Parent;
        dialogs->Parent = this;
    }
}

TFilterCriteriaDialog::~TFilterCriteriaDialog() {
    // The widgets go after the map of help targets; their last events must
    // not reach this filter.
    for (const auto& [part, control] : helpTargets)
        part->removeEventFilter(this);
    helpTargets.clear();
    if (auto* dialogs = dynamic_cast<TQtDialogs*>(Dialogs)) dialogs->Parent = dialogsParent;
    form.Unsubscribe(subscription);
}

// A panel used as a group box: its caption is the title, and a disabled
// group disables all it holds.
void TFilterCriteriaDialog::BindGroup(TControl& panel, QGroupBox& box) {
    box.setObjectName(QString::fromStdString(panel.Name()));
    box.setTitle(ToQString(panel.Caption()));
    BindCommonProperties(panel, box);
}

void TFilterCriteriaDialog::LayOutCriteria() {
    Attach(matchBy, form.LMDrgMatchBy);
    criteriaColumn.addWidget(&matchBy);
    struct TSide {
        TControl& group;
        QGroupBox& box;
        QGridLayout& grid;
        QComboBox& text;
        TControl& textControl;
        QLabel& toolsLabel;
        QComboBox& tools;
        TControl& toolsControl;
        QGroupBox& rules;
        TControl& rulesControl;
    };
    for (const TSide& side : {TSide{form.LMDgbAddressEdit, addressEdit, addressGrid, mailAddress,
                                    form.cbMailAddress, addressToolsLabel, addressTools,
                                    form.cbAddressTools, addressRules, form.LMDrgAddressRules},
                              TSide{form.LMDgbSubjectEdit, subjectEdit, subjectGrid, mailSubject,
                                    form.cbMailSubject, subjectToolsLabel, subjectTools,
                                    form.cbSubjectTools, subjectRules, form.LMDrgSubjectRules}}) {
        BindGroup(side.group, side.box);
        Attach(side.text, side.textControl);
        Attach(side.tools, side.toolsControl);
        Attach(side.rules, side.rulesControl);
        side.toolsLabel.setText(TfrmFilterCriteria::QuickEditsLabel);
        side.grid.addWidget(&side.text, 0, 0, 1, 2);
        side.grid.addWidget(&side.toolsLabel, 1, 0);
        side.grid.addWidget(&side.tools, 1, 1);
        side.grid.addWidget(&side.rules, 2, 0, 1, 2);
        side.rules.setFlat(true);
        criteriaColumn.addWidget(&side.box);
    }
    criteriaColumn.addStretch(1);
}

void TFilterCriteriaDialog::LayOutActions() {
    BindGroup(form.LMDgbAudioAlert, audioAlert);
    audition.setIcon(style()->standardIcon(QStyle::SP_MediaVolume));
    audition.setToolTip("Listen");
    BindCommonProperties(form.sbAuditionAlert, audition);
    connect(&audition, &QToolButton::clicked, this,
            [this] { Guarded([this] { form.sbAuditionAlert.Click(); }); });
    mailArrivalLabel.setText(TfrmFilterCriteria::MailArrivalLabel);
    audioGrid.addWidget(&browseAlert, 0, 0);
    audioGrid.addWidget(&audition, 0, 1, Qt::AlignLeft);
    audioGrid.addWidget(&mailArrivalLabel, 1, 0, 1, 2);
    audioGrid.addWidget(&mailArrival, 2, 0, 1, 2);
    actionsColumn.addWidget(&audioAlert);

    BindGroup(form.LMDgbMsgForwording, forwarding);
    for (auto [widget, control] : {std::pair<QWidget*, TControl*>{&audition, &form.sbAuditionAlert},
                                   {&mailArrival, &form.LMDcmbMailArrival},
                                   {&forwardMsg, &form.LMDcbForwardMsg},
                                   {&fwdAddress, &form.cbFwdAddress},
                                   {&toCellPhone, &form.LMDcbToCellPhone},
                                   {&msgSize, &form.LMDseMsgSize}})
        Attach(*widget, *control);
    fwdAddressLabel.setText(TfrmFilterCriteria::FwdAddressLabel);
    msgSizeLabel.setText(TfrmFilterCriteria::MsgSizeLabel);
    forwardGrid.addWidget(&forwardMsg, 0, 0, 1, 2);
    forwardGrid.addWidget(&fwdAddressLabel, 1, 0, 1, 2);
    forwardGrid.addWidget(&fwdAddress, 2, 0, 1, 2);
    forwardGrid.addWidget(&toCellPhone, 3, 0, 1, 2);
    forwardGrid.addWidget(&msgSizeLabel, 4, 0);
    forwardGrid.addWidget(&msgSize, 4, 1);
    actionsColumn.addWidget(&forwarding);
    actionsColumn.addStretch(1);
    OfferManageMenu(form.cbFwdAddress, fwdAddress);
}

void TFilterCriteriaDialog::LayOutOptions() {
    BindGroup(form.LMDGroupBox1, saveOptions);
    for (auto [widget, control] : {std::pair<QWidget*, TControl*>{&deleteMsg, &form.LMDcbDeleteMsg},
                                   {&saveMsg, &form.LMDcbSaveMsg},
                                   {&saveAltFolder, &form.LMDcbSaveAltFolder},
                                   {&altFolder, &form.LMDcbAltFolder}})
        Attach(*widget, *control);
    altFolderLabel.setText(TfrmFilterCriteria::AltFolderLabel);
    saveGrid.addWidget(&deleteMsg, 0, 0);
    saveGrid.addWidget(&saveMsg, 1, 0);
    saveGrid.addWidget(&saveAltFolder, 2, 0);
    saveGrid.addWidget(&browseFolder, 3, 0, Qt::AlignLeft);
    saveGrid.addWidget(&altFolderLabel, 4, 0);
    saveGrid.addWidget(&altFolder, 5, 0);
    optionsColumn.addWidget(&saveOptions);
    optionsColumn.addStretch(1);
    OfferManageMenu(form.LMDcbAltFolder, altFolder);
}

void TFilterCriteriaDialog::LayOutButtons() {
    buttonRow.setContentsMargins(0, 4, 0, 0);
    buttonRow.setSpacing(4);
    buttonRow.addWidget(&accept);
    buttonRow.addWidget(&alertFiller, 1);
    buttonRow.addWidget(&help);
    buttonRow.addWidget(&cancel);
    layout.addWidget(&buttonBar);
    struct TButton {
        TPanelButtonWidget& widget;
        TPanelButton& model;
    };
    for (const TButton& button :
         {TButton{accept, form.LMDpfAccept}, TButton{help, form.LMDpfHelp},
          TButton{cancel, form.LMDpfCancel}, TButton{browseAlert, form.LMDpfBrowseAlert1},
          TButton{browseFolder, form.LMDpfBrowseFolder}}) {
        button.widget.setMinimumWidth(&button.widget == &browseAlert ? 150 : 80);
        WatchHelp(button.widget, button.model);
    }
}

// The right button on a history combo box opens pmManage, with the focus on
// that combo box, so its Delete acts on the list it came from.
void TFilterCriteriaDialog::OfferManageMenu(TComboBox& combo, QComboBox& widget) {
    widget.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&widget, &QWidget::customContextMenuRequested, this,
            [this, &combo, &widget](const QPoint& at) {
                const QPoint screen = widget.mapToGlobal(at);
                Guarded([&] {
                    form.SetActiveControl(&combo);
                    form.pmManage.Popup({screen.x(), screen.y()});
                });
            });
}

// Tab goes through the controls as they stand: the criteria, the actions,
// the options, then the buttons' keyboard equivalents (Enter, Escape).
void TFilterCriteriaDialog::SetTabOrder() {
    QWidget* order[] = {&tabs,          &mailAddress,  &addressTools, &addressRules, &mailSubject,
                        &subjectTools,  &subjectRules, &audition,     &mailArrival,  &forwardMsg,
                        &fwdAddress,    &toCellPhone,  &msgSize,      &deleteMsg,    &saveMsg,
                        &saveAltFolder, &altFolder};
    for (std::size_t i = 0; i + 1 < std::size(order); ++i)
        setTabOrder(order[i], order[i + 1]);
}

void TFilterCriteriaDialog::FollowForm() {
    if (form.Width() > 0 && form.Width() != width()) resize(form.Width(), height());
}

void TFilterCriteriaDialog::resizeEvent(QResizeEvent* event) {
    TModalDialog::resizeEvent(event);
    form.PageControl1.SetWidth(tabs.width());
    form.PageControl1Resize();
    if (form.PageControl1.TabWidth() > 0)
        tabs.setStyleSheet(
            QString("QTabBar::tab { width: %1px; }").arg(form.PageControl1.TabWidth()));
}

void TFilterCriteriaDialog::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Guarded([this] { form.LMDpfAccept.Click(); });
        return;
    }
    TModalDialog::keyPressEvent(event);
}

// The title bar's "?" puts the buttons in help mode, as in the main window.
bool TFilterCriteriaDialog::event(QEvent* event) {
    if (event->type() == QEvent::EnterWhatsThisMode && Application) {
        Application->DispatchMessage({TApplication::wmNcLButtonDown, TApplication::htHelp});
        return true;
    }
    return TModalDialog::event(event);
}

// The widget of a control is named after it and shows its help.
void TFilterCriteriaDialog::Attach(QWidget& widget, TControl& control) {
    widget.setObjectName(QString::fromStdString(control.Name()));
    WatchHelp(widget, control);
}

// A widget and the parts it is made of show the help of its control; a
// widget already watched for a control of its own keeps that one.
void TFilterCriteriaDialog::WatchHelp(QWidget& widget, TControl& control) {
    QList<QWidget*> parts = widget.findChildren<QWidget*>();
    parts.prepend(&widget);
    for (QWidget* part : parts)
        if (helpTargets.emplace(part, &control).second) part->installEventFilter(this);
}

// After the title bar's "?" a click on a control shows the control's help
// and is used up, as a panel button's click is. The click arrives as a
// press in the program's own help mode, or as Qt's what's-this request.
bool TFilterCriteriaDialog::eventFilter(QObject* watched, QEvent* event) {
    const auto found = helpTargets.find(watched);
    if (found == helpTargets.end()) return TModalDialog::eventFilter(watched, event);
    const int context = found->second->HelpContext();
    switch (event->type()) {
    case QEvent::QueryWhatsThis:
        event->setAccepted(context > 0);
        return true;
    case QEvent::WhatsThis:
        break;
    case QEvent::MouseButtonPress:
        if (PButtons && PButtons->HelpMode) break;
        return TModalDialog::eventFilter(watched, event);
    default:
        return TModalDialog::eventFilter(watched, event);
    }
    if (PButtons) PButtons->HelpMode = false;
    if (QWhatsThis::inWhatsThisMode()) QWhatsThis::leaveWhatsThisMode();
    if (Globals && context > 0) Globals->ShowContextHelp(context);
    return true;
}

std::unique_ptr<TModalDialog> MakeFilterCriteriaDialog(TForm& form) {
    auto* editor = dynamic_cast<TfrmFilterCriteria*>(&form);
    if (!editor) return nullptr;
    return std::make_unique<TFilterCriteriaDialog>(*editor);
}
