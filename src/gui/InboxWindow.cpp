#include "gui/InboxWindow.h"
#include "gui/ControlBinding.h"

#include <QCloseEvent>
#include <QTimer>

#include "gui/PanelBinding.h"
#include "gui/QtText.h"
#include "inbox/InboxForm.h"
#include "platform/Application.h"

TInboxWindow::TButtonPair::TButtonPair(TPanelButton& button, TPanelButton& menuButton)
    : main(button), menu(menuButton) {
    row.setContentsMargins(0, 0, 0, 0);
    row.setSpacing(0);
    row.addWidget(&main);
    row.addWidget(&menu);
}

TInboxWindow::TInboxWindow(TInboxFrm& form)
    : form(form), browse(form.LMDpfInbox, form.LMDpfSubMailboxes),
      runMail(form.LMDpfRunMail, form.LMDpfSubEmailers),
      remove(form.LMDpfDelete, form.LMDpfSubDelete), send(form.LMDpfSend), rules(form.LMDpfRules),
      search(form.LMDpfSearch), refresh(form.LMDpfRefresh), help(form.LMDpfHelp),
      close(form.LMDpfClose), listBinding(form.lvEmailList, list),
      filterTypeBinding(form.LMDcbFilterType, filterType),
      filterTextBinding(form.LMDcbFilterText, filterText) {
    setObjectName("InboxFrm");
    setWindowFlag(Qt::WindowContextHelpButtonHint);
    layout.setContentsMargins(4, 4, 4, 0);
    LayOutFilterBar();
    list.setObjectName("lvEmailList");
    layout.addWidget(&list, 1);
    LayOutButtonBar();
    LayOutStatusBar();
    resize(900, 560);
    FollowForm();
    subscription = form.Subscribe([this](TControl&, TChange) { FollowForm(); });
    connect(&helpKey, &QShortcut::activated, this, [] {
        if (Application)
            Application->DispatchMessage({TApplication::wmNcLButtonDown, TApplication::htHelp});
    });
}

TInboxWindow::~TInboxWindow() {
    form.Unsubscribe(subscription);
    form.OnScanProgress = nullptr;
}

void TInboxWindow::LayOutFilterBar() {
    filterType.setObjectName("LMDcbFilterType");
    filterText.setObjectName("LMDcbFilterText");
    filterRow.setContentsMargins(0, 0, 0, 0);
    filterRow.addWidget(&filterTypeLabel);
    filterRow.addWidget(&filterType);
    filterRow.addSpacing(12);
    filterRow.addWidget(&filterTextLabel);
    filterRow.addWidget(&filterText, 1);
    layout.addWidget(&filterBar);
}

void TInboxWindow::LayOutButtonBar() {
    buttonRow.setContentsMargins(0, 2, 0, 2);
    buttonRow.setSpacing(4);
    buttonRow.addWidget(&browse.box);
    buttonRow.addWidget(&runMail.box);
    buttonRow.addWidget(&send);
    buttonRow.addWidget(&rules);
    buttonRow.addWidget(&remove.box);
    buttonRow.addWidget(&search);
    buttonRow.addWidget(&refresh);
    buttonRow.addStretch(1);
    buttonRow.addWidget(&help);
    buttonRow.addWidget(&close);
    layout.addWidget(&buttonBar);
}

void TInboxWindow::LayOutStatusBar() {
    statusBar.setFrameShape(QFrame::StyledPanel);
    statusRow.setContentsMargins(6, 2, 6, 2);
    status.setObjectName("LMDpfStatusBar");
    BindPanel(form.LMDpfStatusBar, status);
    date.setObjectName("LMDpfDate");
    BindPanel(form.LMDpfDate, date);
    statusRow.addWidget(&status, 1);
    statusRow.addWidget(&scanProgress);
    statusRow.addWidget(&date);
    layout.addWidget(&statusBar);
    // Shown at most every 50 ms, so that a long scan is not slowed by its own progress.
    form.OnScanProgress = [this](int done, int total) {
        if (done >= total) {
            scanProgress.clear();
        } else if (!scanProgressShown.isValid() || scanProgressShown.elapsed() >= 50) {
            scanProgress.setText(QString("Reading %1 of %2").arg(done).arg(total));
            scanProgressShown.start();
        }
    };
}

void TInboxWindow::FollowForm() {
    setWindowTitle(ToQString(form.Caption()));
    if (form.Width() > 0 && form.Width() != width()) resize(form.Width(), height());
    if (!form.Visible() && isVisible()) hide();
}

void TInboxWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (activatedOnce) return;
    activatedOnce = true;
    QTimer::singleShot(0, this, [this] {
        Guarded([this] { form.FormActivate(); });
        emit activated();
    });
}

void TInboxWindow::closeEvent(QCloseEvent* event) {
    if (form.Visible()) form.Close();
    event->accept();
}

bool TInboxWindow::event(QEvent* event) {
    if (event->type() == QEvent::EnterWhatsThisMode && Application) {
        Application->DispatchMessage({TApplication::wmNcLButtonDown, TApplication::htHelp});
        return true;
    }
    return QWidget::event(event);
}
