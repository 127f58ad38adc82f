#include "gui/InboxWindow.h"
#include "gui/ControlBinding.h"

#include <QCloseEvent>
#include <QLineEdit>
#include <QScreen>
#include <QTimer>

#include "gui/PanelBinding.h"
#include "gui/QtText.h"
#include "gui/WindowFrame.h"
#include "inbox/InboxForm.h"
#include "platform/Application.h"

TInboxWindow::TButtonPair::TButtonPair(TPanelButton& button, TPanelButton& menuButton)
    : main(button), menu(menuButton) {
    row.setContentsMargins(0, 0, 0, 0);
    row.setSpacing(0);
    row.addWidget(&main);
    row.addWidget(&menu);
    main.SetMenuButton(&menu);
}

TInboxWindow::TInboxWindow(TInboxFrm& form)
    : form(form), browse(form.LMDpfInbox, form.LMDpfSubMailboxes),
      runMail(form.LMDpfRunMail, form.LMDpfSubEmailers),
      remove(form.LMDpfDelete, form.LMDpfSubDelete), send(form.LMDpfSend), rules(form.LMDpfRules),
      search(form.LMDpfSearch), refresh(form.LMDpfRefresh), help(form.LMDpfHelp),
      close(form.LMDpfClose), listBinding(form.lvEmailList, list),
      filterTypeBinding(form.LMDcbFilterType, filterType),
      filterTextBinding(form.LMDcbFilterText, filterText), listCommands(form, list) {
    setObjectName("InboxFrm");
    setWindowFlag(Qt::WindowContextHelpButtonHint);
    layout.setContentsMargins(4, 4, 4, 4);
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
    SetUpKeys();
    SetUpAccessibility();
}

void TInboxWindow::SetUpKeys() {
    QWidget* order[] = {&filterType,   &filterText,   &list,    &browse.main, &browse.menu,
                        &runMail.main, &runMail.menu, &send,    &rules,       &remove.main,
                        &remove.menu,  &search,       &refresh, &help,        &close};
    for (std::size_t i = 1; i < std::size(order); ++i)
        setTabOrder(order[i - 1], order[i]);
    filterTypeLabel.setBuddy(&filterType);
    filterTextLabel.setBuddy(&filterText);
    connect(&refreshKey, &QShortcut::activated, this, [this] { refresh.Press(); });
    connect(&closeKey, &QShortcut::activated, this, [this] { close.Press(); });
    connect(&quitKey, &QShortcut::activated, this, [this] { close.Press(); });
    deleteKey.setContext(Qt::WidgetShortcut);
    connect(&deleteKey, &QShortcut::activated, this, [this] { remove.main.Press(); });
    if (QLineEdit* text = filterText.lineEdit())
        connect(text, &QLineEdit::returnPressed, this, [this] { refresh.Press(); });
    InstallWindowKeys(*this);
}

void TInboxWindow::SetUpAccessibility() {
    list.setAccessibleName("Messages");
    filterType.setAccessibleName("Filtering");
    filterText.setAccessibleName("Filter text");
    status.setAccessibleName("Status");
    date.setAccessibleName("Date");
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
    setWindowTitle(WindowTitleOf(form.Caption()));
    if (form.Width() > 0 && form.Width() != width()) {
        resize(form.Width(), height());
        FitIntoScreen(*this);
    }
    if (!form.Visible() && isVisible()) hide();
}

void TInboxWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (activatedOnce) return;
    activatedOnce = true;
    // The window opens centred on the desktop, and no larger than it.
    if (const QScreen* screen = this->screen()) {
        QRect wanted(QPoint(0, 0), size());
        wanted.moveCenter(screen->availableGeometry().center());
        setGeometry(FittedGeometry(wanted, minimumSizeHint(), screen->availableGeometry()));
    }
    QTimer::singleShot(0, this, [this] {
        Guarded([this] { form.FormActivate(); });
        DescribeFromHelp(*this); // the activation has found the help file
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
