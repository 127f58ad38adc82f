#pragma once
// The application object of the desktop program, on Qt's event loop: a scan
// that yields lets the window paint and the user click.

#include <QElapsedTimer>
#include <QList>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "gui/ModalDialog.h"
#include "platform/Application.h"

class TQtApplication : public TApplication {
public:
    TQtApplication();
    void ProcessMessages() override;
    void WaitForEvents(std::uint32_t ms) override;
    bool Terminated() const override { return terminated; }
    void Terminate() override;
    std::uint32_t GetTickCount() const override;
    void Post(std::function<void()> event) override;
    TPoint CursorPos() const override;
    void NormalizeAllTopMosts() override;
    void RestoreTopMosts() override;
    void BringToFront() override;

    // Builds the screen of a modal form, by the form's name.
    using TModalViewFactory = std::function<std::unique_ptr<TModalDialog>(TForm& form)>;
    void RegisterModalView(const std::string& formName, TModalViewFactory factory);
    // Shows the form's view until the form is hidden; a form without a view
    // is closed at once, as by its title bar.
    void RunModal(TForm& form) override;

private:
    // The windows NormalizeAllTopMosts took off the top, to give it back.
    QList<QPointer<QWidget>> normalized;
    QElapsedTimer clock;
    bool terminated = false;
    std::map<std::string, TModalViewFactory> views;
};
