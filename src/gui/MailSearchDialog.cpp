#include "gui/MailSearchDialog.h"

#include <QResizeEvent>
#include <algorithm>

#include "gui/QtText.h"
#include "search/MailSearch.h"

TMailSearchDialog::TMailSearchDialog(TfrmMailSearch& form, QWidget* parent)
    : TModalDialog(form, parent), form(form), begin(form.LMDpfBegin), clear(form.LMDpfClear),
      subEmailers(form.LMDpfSubEmailers), runMail(form.LMDpfRunMail), remove(form.LMDpfDelete),
      help(form.LMDpfHelp), close(form.LMDpfClose), pagesBinding(form.PageControl1, pages),
      searchTextBinding(form.LMDcbSearchStr, searchText),
      caseSenseBinding(form.LMDcbxCaseSense, caseSense),
      wholeWordBinding(form.LMDcbxWholeWord, wholeWord), whereBinding(form.LMDrgWhere, where),
      resultsBinding(form.lvSrchResult, results) {
    setObjectName("frmMailSearch");
    setWindowFlag(Qt::WindowContextHelpButtonHint);
    setMinimumSize(TfrmMailSearch::minWidth, TfrmMailSearch::minHeight);
    layout.setContentsMargins(4, 4, 4, 4);
    LayOutSearchPage();
    pages.setObjectName("PageControl1");
    layout.addWidget(&pages, 1);
    LayOutButtonBar();
    resize(std::max(form.Width(), TfrmMailSearch::minWidth), TfrmMailSearch::firstHeight);
}

void TMailSearchDialog::LayOutSearchPage() {
    searchPage.setObjectName("tsSearch");
    options.setObjectName("LMDpfOptions");
    searchText.setObjectName("LMDcbSearchStr");
    searchText.setEditable(true);
    optionsBox.setObjectName("LMDgbOptions");
    caseSense.setObjectName("LMDcbxCaseSense");
    wholeWord.setObjectName("LMDcbxWholeWord");
    where.setObjectName("LMDrgWhere");
    optionsBoxLayout.addWidget(&caseSense);
    optionsBoxLayout.addWidget(&wholeWord);
    optionsLayout.setContentsMargins(0, 0, 0, 0);
    optionsLayout.addWidget(&textLabel);
    optionsLayout.addWidget(&searchText);
    // The two boxes share the width equally, as the form's resize rule says.
    boxesRow.addWidget(&optionsBox, 1);
    boxesRow.addSpacing(8);
    boxesRow.addWidget(&where, 1);
    optionsLayout.addLayout(&boxesRow);
    pageLayout.addWidget(&options);
    results.setObjectName("lvSrchResult");
    results.setRootIsDecorated(false);
    results.setSelectionMode(QAbstractItemView::SingleSelection);
    pageLayout.addWidget(&results, 1);
    pages.addTab(&searchPage, ToQString(form.tsSearch.Caption()));
}

void TMailSearchDialog::LayOutButtonBar() {
    buttonBar.setObjectName("LMDpfButtonBar");
    runMailRow.setContentsMargins(0, 0, 0, 0);
    runMailRow.setSpacing(0);
    // The small menu button stands at the left edge of Run Mail.
    runMailRow.addWidget(&subEmailers);
    runMailRow.addWidget(&runMail);
    buttonRow.setContentsMargins(0, 2, 0, 0);
    buttonRow.setSpacing(4);
    buttonRow.addWidget(&begin);
    buttonRow.addWidget(&clear);
    buttonRow.addWidget(&runMailBox);
    buttonRow.addWidget(&remove);
    buttonRow.addStretch(1);
    buttonRow.addWidget(&help);
    buttonRow.addWidget(&close);
    layout.addWidget(&buttonBar);
}

void TMailSearchDialog::showEvent(QShowEvent* event) {
    TModalDialog::showEvent(event);
    if (form.Width() > width()) resize(form.Width(), height());
    searchText.setFocus();
}

void TMailSearchDialog::resizeEvent(QResizeEvent* event) {
    TModalDialog::resizeEvent(event);
    form.LMDpfOptions.SetWidth(options.width());
    Guarded([this] { form.FormResize(); });
}
