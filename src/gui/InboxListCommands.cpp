#include "gui/InboxListCommands.h"

#include <QHeaderView>
#include <QMenu>
#include <QTreeView>

#include "gui/ControlBinding.h"
#include "gui/QtText.h"
#include "inbox/InboxForm.h"
#include "platform/Application.h"
#include "settings/PanelButtons.h"

namespace {

bool Usable(const TPanelButton& button) {
    return button.Enabled() && !TPButtons::Refused(button);
}

} // namespace

TInboxListCommands::TInboxListCommands(TInboxFrm& form, QTreeView& list) : form(form), list(list) {
    list.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&list, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& at) { Open(RowMenu(), this->list.viewport()->mapToGlobal(at)); });
    QHeaderView* header = list.header();
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& at) { Open(HeaderMenu(), this->list.header()->mapToGlobal(at)); });
    subscription = form.lvEmailList.Subscribe([this](TControl&, TChange change) {
        if (change == TChange::Rows) ShowSortIndicator();
    });
    ShowSortIndicator();
}

TInboxListCommands::~TInboxListCommands() {
    form.lvEmailList.Unsubscribe(subscription);
}

void TInboxListCommands::AddEntry(QMenu& menu, const QString& text, bool enabled,
                                  std::function<void()> command) {
    QAction* action = menu.addAction(text);
    action->setEnabled(enabled);
    commands[action] = std::move(command);
}

void TInboxListCommands::AddButton(QMenu& menu, const QString& text, TPanelButton& button) {
    AddEntry(menu, text, Usable(button), [&button] { button.Click(); });
}

// The entries of a button's drop-down menu, as its button would fill them.
void TInboxListCommands::AddEntries(QMenu& menu, TPopupMenu& popup, const TPanelButton& owner) {
    if (popup.OnPopup) popup.OnPopup();
    for (int i = 0; i < popup.Items.GetCount(); ++i) {
        TMenuItem& item = popup.Items.Items(i);
        if (item.Caption == AnsiString("-")) {
            menu.addSeparator();
            continue;
        }
        AddEntry(menu, ToQString(CaptionWithoutHotKey(item.Caption)), Usable(owner),
                 [&item] { item.Click(); });
    }
}

std::unique_ptr<QMenu> TInboxListCommands::RowMenu() {
    commands.clear();
    auto menu = std::make_unique<QMenu>(&list);
    const bool row = form.lvEmailList.SelCount() > 0;
    AddButton(*menu, "Run Mail", form.LMDpfRunMail);
    QMenu* clients = menu->addMenu("Run Mail with");
    AddEntries(*clients, form.pmEmailers, form.LMDpfSubEmailers);
    clients->setEnabled(row && !clients->isEmpty());
    AddButton(*menu, "Forward", form.LMDpfSend);
    if (form.pmRules.OnPopup || form.pmRules.Items.GetCount() > 0) {
        menu->addSeparator();
        AddEntries(*menu, form.pmRules, form.LMDpfRules);
    }
    menu->addSeparator();
    AddButton(*menu, "Delete", form.LMDpfDelete);
    return menu;
}

std::unique_ptr<QMenu> TInboxListCommands::HeaderMenu() {
    commands.clear();
    auto menu = std::make_unique<QMenu>(&list);
    const int sorted = form.SortedColumn();
    for (std::size_t i = 0; i < form.lvEmailList.Columns.size(); ++i) {
        const int column = static_cast<int>(i);
        const QString caption = ToQString(form.lvEmailList.Columns[i].Caption);
        AddEntry(*menu, "Sort by " + caption, true,
                 [this, column] { form.lvEmailList.ColumnClick(column); });
        QAction* entry = menu->actions().back();
        entry->setCheckable(true);
        entry->setChecked(column == sorted);
    }
    return menu;
}

void TInboxListCommands::Run(const QAction* chosen) {
    const auto found = commands.find(chosen);
    if (found == commands.end()) return;
    const std::function<void()> command = found->second;
    commands.clear();
    Guarded(command);
}

// The command runs after the menu has closed, as a button's menu entry does.
void TInboxListCommands::Open(std::unique_ptr<QMenu> menu, QPoint screen) {
    Run(menu->exec(screen));
}

void TInboxListCommands::ShowSortIndicator() {
    const int column = form.SortedColumn();
    QHeaderView* header = list.header();
    header->setSortIndicatorShown(column >= 0);
    if (column >= 0)
        header->setSortIndicator(column,
                                 form.SortedAscending() ? Qt::AscendingOrder : Qt::DescendingOrder);
}
