#pragma once
// The on-screen view of a modal form: a QDialog that closes when the form is
// hidden, and whose Escape key and title-bar close go to the form's own
// window close, so the form decides what closing means. Like the main
// window, it names the program in its title, fits the screen, and gives its
// panel buttons Alt hot keys and F1 to its Help button.

#include <QDialog>

class TForm;

class TModalDialog : public QDialog {
public:
    TModalDialog(TForm& form, QWidget* parent = nullptr);
    ~TModalDialog() override;

    TForm& Form() const { return form; }
    void reject() override;

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    TForm& form;
    int subscription = 0;
    bool prepared = false;
};
