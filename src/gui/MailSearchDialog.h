#pragma once
// The "Find Text" window on screen: one tab holding the text, the options and
// the scope above the result list, and the button bar below, each widget
// bound to its control in TfrmMailSearch. Bindings are declared last so they
// go first.

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QTabWidget>
#include <QTreeView>
#include <QVBoxLayout>

#include "gui/CheckBoxBinding.h"
#include "gui/ComboBoxBinding.h"
#include "gui/ListViewBinding.h"
#include "gui/ModalDialog.h"
#include "gui/PageControlBinding.h"
#include "gui/PanelButtonWidget.h"
#include "gui/RadioGroupBinding.h"

class TfrmMailSearch;

class TMailSearchDialog : public TModalDialog {
public:
    explicit TMailSearchDialog(TfrmMailSearch& form, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void LayOutSearchPage();
    void LayOutButtonBar();

    TfrmMailSearch& form;
    QVBoxLayout layout{this};
    QTabWidget pages;
    QWidget searchPage;
    QVBoxLayout pageLayout{&searchPage};

    QWidget options;
    QVBoxLayout optionsLayout{&options};
    QLabel textLabel{"Text to find:"};
    QComboBox searchText;
    QHBoxLayout boxesRow;
    QGroupBox optionsBox{"Options"};
    QVBoxLayout optionsBoxLayout{&optionsBox};
    QCheckBox caseSense, wholeWord;
    QGroupBox where;

    QTreeView results;

    QWidget buttonBar;
    QHBoxLayout buttonRow{&buttonBar};
    QWidget runMailBox;
    QHBoxLayout runMailRow{&runMailBox};
    TPanelButtonWidget begin, clear, subEmailers, runMail, remove, help, close;

    TPageControlBinding pagesBinding;
    TComboBoxBinding searchTextBinding;
    TCheckBoxBinding caseSenseBinding, wholeWordBinding;
    TRadioGroupBinding whereBinding;
    TListViewBinding resultsBinding;
};
