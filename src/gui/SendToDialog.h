#pragma once
// The "Send To" dialog on screen: the title band, "To:" and "Subject", the
// note, the Send / Help / Cancel buttons and the status line, each widget
// bound to its control in TfrmSendTo. While a send runs the dialog keeps
// painting and shows the hourglass over Send; the send itself waits on a
// worker thread of the mail component.

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QVBoxLayout>
#include <memory>

#include "gui/ComboBoxBinding.h"
#include "gui/EditBinding.h"
#include "gui/MemoBinding.h"
#include "gui/ModalDialog.h"
#include "gui/PanelButtonWidget.h"

class TfrmSendTo;
class TForm;

class TSendToDialog : public TModalDialog {
public:
    explicit TSendToDialog(TfrmSendTo& form, QWidget* parent = nullptr);

    // The view the desktop program registers for "frmSendTo".
    static std::unique_ptr<TModalDialog> Create(TForm& form);

private:
    void LayOutTitleBand();
    void LayOutButtons();

    TfrmSendTo& sendTo;
    QVBoxLayout layout{this};

    QFrame titleBand;
    QGridLayout titleGrid{&titleBand};
    QLabel title, toLabel{"To:"}, subjectLabel{"Subject"};
    QComboBox to;
    QLineEdit subject;

    QPlainTextEdit note;

    QWidget buttonBar;
    QHBoxLayout buttonRow{&buttonBar};
    TPanelButtonWidget send, help, cancel;
    QLabel filler, status;

    TComboBoxBinding toBinding;
    TEditBinding subjectBinding;
    TMemoBinding noteBinding;
};
