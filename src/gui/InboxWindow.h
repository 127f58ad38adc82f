#pragma once
// The main window on screen: the filter bar, the list of messages, the
// button bar and the status bar, each widget bound to its control in
// TInboxFrm. The first show runs the window's activation; closing it closes
// the form. Every key of the window goes to the handler of the button or
// list event it stands for. Every widget and binding is a member, so the window owns them
// outright; bindings are declared last and go first.

#include <QComboBox>
#include <QElapsedTimer>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QShortcut>
#include <QTreeView>
#include <QVBoxLayout>
#include <QWidget>

#include "gui/ComboBoxBinding.h"
#include "gui/InboxListCommands.h"
#include "gui/ListViewBinding.h"
#include "gui/PanelButtonWidget.h"

class TInboxFrm;

class TInboxWindow : public QWidget {
    Q_OBJECT
public:
    explicit TInboxWindow(TInboxFrm& form);
    ~TInboxWindow() override;

    TInboxListCommands& ListCommands() { return listCommands; }
    QTreeView& ListView() { return list; }

signals:
    // The activation has run: the first scan is on the screen.
    void activated();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;

private:
    // A button with its small menu button on its right edge.
    struct TButtonPair {
        TButtonPair(TPanelButton& button, TPanelButton& menuButton);
        QWidget box;
        QHBoxLayout row{&box};
        TPanelButtonWidget main, menu;
    };

    void LayOutFilterBar();
    void LayOutButtonBar();
    void LayOutStatusBar();
    void FollowForm();
    void SetUpKeys();
    void SetUpAccessibility();

    TInboxFrm& form;
    QVBoxLayout layout{this};

    QWidget filterBar;
    QHBoxLayout filterRow{&filterBar};
    QLabel filterTypeLabel{"&Filtering:"}, filterTextLabel{"&Text:"};
    QComboBox filterType, filterText;

    QTreeView list;

    QWidget buttonBar;
    QHBoxLayout buttonRow{&buttonBar};
    TButtonPair browse, runMail, remove;
    TPanelButtonWidget send, rules, search, refresh, help, close;

    QFrame statusBar;
    QHBoxLayout statusRow{&statusBar};
    QLabel status, date;
    // How far a running scan has read, beside the message count; empty otherwise.
    QLabel scanProgress;
    QElapsedTimer scanProgressShown;

    TListViewBinding listBinding;
    TComboBoxBinding filterTypeBinding, filterTextBinding;
    TInboxListCommands listCommands;

    // The title bar's "?" is not offered by every window manager; Shift+F1 is.
    QShortcut helpKey{QKeySequence(Qt::SHIFT | Qt::Key_F1), this};
    QShortcut refreshKey{QKeySequence(Qt::Key_F5), this};
    QShortcut closeKey{QKeySequence(Qt::Key_Escape), this};
    QShortcut quitKey{QKeySequence(Qt::CTRL | Qt::Key_Q), this};
    QShortcut deleteKey{QKeySequence(Qt::Key_Delete), &list};

    int subscription = 0;
    bool activatedOnce = false;
};
