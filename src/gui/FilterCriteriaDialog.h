#pragma once
// The Filter Editor on screen: three tabs (Criteria, Actions, Options) over
// a row of Apply, Help and Close, each widget bound to its control in
// TfrmFilterCriteria. Enter applies, Escape and the title bar close; the
// title bar's "?" (or Shift+F1) and then a click on any control shows that
// control's help. Every widget and binding is a member; bindings go first.

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QShortcut>
#include <QSpinBox>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <map>

#include "gui/CheckBoxBinding.h"
#include "gui/ComboBoxBinding.h"
#include "gui/ModalDialog.h"
#include "gui/PageControlBinding.h"
#include "gui/PanelButtonWidget.h"
#include "gui/RadioGroupBinding.h"
#include "gui/SpinEditBinding.h"

class TfrmFilterCriteria;
class QDialog;

class TFilterCriteriaDialog : public TModalDialog {
    Q_OBJECT
public:
    explicit TFilterCriteriaDialog(TfrmFilterCriteria& form, QWidget* parent = nullptr);
    ~TFilterCriteriaDialog() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void LayOutCriteria();
    void LayOutActions();
    void LayOutOptions();
    void LayOutButtons();
    void BindGroup(TControl& panel, QGroupBox& box);
    void OfferManageMenu(TComboBox& combo, QComboBox& widget);
    void SetTabOrder();
    void FollowForm();
    void WatchHelp(QWidget& widget, TControl& control);
    void Attach(QWidget& widget, TControl& control);

    TfrmFilterCriteria& form;
    QVBoxLayout layout{this};
    QTabWidget tabs;
    QWidget criteria, actions, options;
    QVBoxLayout criteriaColumn{&criteria}, actionsColumn{&actions}, optionsColumn{&options};

    QGroupBox matchBy, addressEdit, subjectEdit, addressRules, subjectRules;
    QGridLayout addressGrid{&addressEdit}, subjectGrid{&subjectEdit};
    QComboBox mailAddress, addressTools, mailSubject, subjectTools;
    QLabel addressToolsLabel, subjectToolsLabel;

    QGroupBox audioAlert, forwarding;
    QGridLayout audioGrid{&audioAlert}, forwardGrid{&forwarding};
    TPanelButtonWidget browseAlert;
    QToolButton audition;
    QComboBox mailArrival, fwdAddress;
    QLabel mailArrivalLabel, fwdAddressLabel, msgSizeLabel;
    QCheckBox forwardMsg, toCellPhone;
    QSpinBox msgSize;

    QGroupBox saveOptions;
    QGridLayout saveGrid{&saveOptions};
    QCheckBox deleteMsg, saveMsg, saveAltFolder;
    TPanelButtonWidget browseFolder;
    QComboBox altFolder;
    QLabel altFolderLabel;

    QWidget buttonBar;
    QHBoxLayout buttonRow{&buttonBar};
    TPanelButtonWidget accept, help, cancel;
    QWidget alertFiller;

    QShortcut helpKey{QKeySequence(Qt::SHIFT | Qt::Key_F1), this};
    std::map<QObject*, TControl*> helpTargets;
    QWidget* dialogsParent = nullptr;
    int subscription = 0;

    TPageControlBinding tabsBinding;
    TRadioGroupBinding matchByBinding, addressRulesBinding, subjectRulesBinding;
    TComboBoxBinding mailAddressBinding, addressToolsBinding, mailSubjectBinding,
        subjectToolsBinding, mailArrivalBinding, fwdAddressBinding, altFolderBinding;
    TCheckBoxBinding forwardMsgBinding, toCellPhoneBinding, deleteMsgBinding, saveMsgBinding,
        saveAltFolderBinding;
    TSpinEditBinding msgSizeBinding;
};

// The view factory that TQtApplication::RegisterModalView takes.
std::unique_ptr<TModalDialog> MakeFilterCriteriaDialog(TForm& form);
