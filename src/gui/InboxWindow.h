#pragma once
// The main window on screen: the filter bar, the list of messages, the
// button bar and the status bar, each widget bound to its control in
// TInboxFrm. The first show runs the window's activation; closing it closes
// the form.

#include <QWidget>

class TInboxFrm;

class TInboxWindow : public QWidget {
    Q_OBJECT
public:
    explicit TInboxWindow(TInboxFrm& form);
    ~TInboxWindow() override;

signals:
    // The activation has run: the first scan is on the screen.
    void activated();

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;

private:
    QWidget* BuildFilterBar();
    QWidget* BuildButtonBar();
    QWidget* BuildStatusBar();
    void FollowForm();

    TInboxFrm& form;
    int subscription = 0;
    bool activatedOnce = false;
};
