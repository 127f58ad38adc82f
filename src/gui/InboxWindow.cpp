#include "gui/InboxWindow.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QShortcut>
#include <QTimer>
#include <QTreeView>
#include <QVBoxLayout>

#include "gui/ComboBoxBinding.h"
#include "gui/ListViewBinding.h"
#include "gui/PanelBinding.h"
#include "gui/PanelButtonWidget.h"
#include "gui/QtText.h"
#include "inbox/InboxForm.h"
#include "platform/Application.h"

namespace {

// A button with its small menu button on its right edge.
QWidget* WithMenuButton(TPanelButton& button, TPanelButton& menuButton) {
    auto* pair = new QWidget;
    auto* row = new QHBoxLayout(pair);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(new TPanelButtonWidget(button));
    row->addWidget(new TPanelButtonWidget(menuButton));
    return pair;
}

} // namespace

TInboxWindow::TInboxWindow(TInboxFrm& form) : form(form) {
    setObjectName("InboxFrm");
    setWindowFlag(Qt::WindowContextHelpButtonHint);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 0);
    layout->addWidget(BuildFilterBar());
    auto* list = new QTreeView;
    list->setObjectName("lvEmailList");
    new TListViewBinding(form.lvEmailList, *list);
    layout->addWidget(list, 1);
    layout->addWidget(BuildButtonBar());
    layout->addWidget(BuildStatusBar());
    resize(900, 560);
    FollowForm();
    subscription = form.Subscribe([this](TControl&, TChange) { FollowForm(); });
    // The title bar's "?" is not offered by every window manager; Shift+F1 is.
    auto* helpKey = new QShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F1), this);
    connect(helpKey, &QShortcut::activated, this, [] {
        if (Application)
            Application->DispatchMessage({TApplication::wmNcLButtonDown, TApplication::htHelp});
    });
}

TInboxWindow::~TInboxWindow() {
    form.Unsubscribe(subscription);
}

QWidget* TInboxWindow::BuildFilterBar() {
    auto* bar = new QWidget;
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    auto* type = new QComboBox;
    type->setObjectName("LMDcbFilterType");
    new TComboBoxBinding(form.LMDcbFilterType, *type);
    auto* text = new QComboBox;
    text->setObjectName("LMDcbFilterText");
    new TComboBoxBinding(form.LMDcbFilterText, *text);
    row->addWidget(new QLabel("Filtering:"));
    row->addWidget(type);
    row->addSpacing(12);
    row->addWidget(new QLabel("Text:"));
    row->addWidget(text, 1);
    return bar;
}

QWidget* TInboxWindow::BuildButtonBar() {
    auto* bar = new QWidget;
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 2, 0, 2);
    row->setSpacing(4);
    row->addWidget(WithMenuButton(form.LMDpfInbox, form.LMDpfSubMailboxes));
    row->addWidget(WithMenuButton(form.LMDpfRunMail, form.LMDpfSubEmailers));
    row->addWidget(new TPanelButtonWidget(form.LMDpfSend));
    row->addWidget(new TPanelButtonWidget(form.LMDpfRules));
    row->addWidget(WithMenuButton(form.LMDpfDelete, form.LMDpfSubDelete));
    row->addWidget(new TPanelButtonWidget(form.LMDpfSearch));
    row->addWidget(new TPanelButtonWidget(form.LMDpfRefresh));
    row->addStretch(1);
    row->addWidget(new TPanelButtonWidget(form.LMDpfHelp));
    row->addWidget(new TPanelButtonWidget(form.LMDpfClose));
    for (TPanelButton* button : {&form.LMDpfSend, &form.LMDpfRules, &form.LMDpfSearch,
                                 &form.LMDpfRefresh, &form.LMDpfHelp, &form.LMDpfClose})
        if (button->Width() == 0) button->SetWidth(80);
    return bar;
}

QWidget* TInboxWindow::BuildStatusBar() {
    auto* bar = new QFrame;
    bar->setFrameShape(QFrame::StyledPanel);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(6, 2, 6, 2);
    auto* status = new QLabel;
    status->setObjectName("LMDpfStatusBar");
    BindPanel(form.LMDpfStatusBar, *status);
    auto* date = new QLabel;
    date->setObjectName("LMDpfDate");
    BindPanel(form.LMDpfDate, *date);
    row->addWidget(status, 1);
    row->addWidget(date);
    return bar;
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
        form.FormActivate();
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
