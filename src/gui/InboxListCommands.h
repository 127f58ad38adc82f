#pragma once
// The menus of the message list: on a row, the commands of the button bar
// (Run Mail, Run Mail with another client, Forward, the Rules entries,
// Delete); on the header, a sort by each column. Every entry goes through the
// same handler as its button or menu, so a busy window refuses it the same
// way. The header also shows which column the rows are sorted by, and which
// way.

#include <QObject>
#include <functional>
#include <map>
#include <memory>

class QAction;
class QMenu;
class QPoint;
class QTreeView;
class TInboxFrm;
class TMenuItem;
class TPanelButton;
class TPopupMenu;

class TInboxListCommands : public QObject {
    Q_OBJECT
public:
    TInboxListCommands(TInboxFrm& form, QTreeView& list);
    ~TInboxListCommands() override;

    // The menus as they would open now; Run runs the chosen entry's command.
    std::unique_ptr<QMenu> RowMenu();
    std::unique_ptr<QMenu> HeaderMenu();
    void Run(const QAction* chosen);

    void ShowSortIndicator();

private:
    void Open(std::unique_ptr<QMenu> menu, QPoint screen);
    void AddButton(QMenu& menu, const QString& text, TPanelButton& button);
    void AddEntries(QMenu& menu, TPopupMenu& popup, const TPanelButton& owner);
    void AddEntry(QMenu& menu, const QString& text, bool enabled, std::function<void()> command);

    TInboxFrm& form;
    QTreeView& list;
    std::map<const QAction*, std::function<void()>> commands;
    int subscription = 0;
};
