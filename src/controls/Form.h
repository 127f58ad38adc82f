#pragma once
// A window model: its caption and visibility, and its controls by name, as a
// form finds its components. Every living form can be found by its name, and
// a form can be shown modally: whoever runs the message loop (the application
// object) runs the modal loop until the form is hidden again.

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "controls/Control.h"

enum class TModalResult { mrNone = 0, mrOk = 1, mrCancel = 2 };

class TForm;

// Runs a modal loop for a shown form and returns once the form is hidden.
class TModalHost {
public:
    virtual ~TModalHost() = default;
    virtual void RunModal(TForm& form) = 0;
};

class TForm : public TControl {
public:
    explicit TForm(std::string name);
    ~TForm() override;

    // The control called name, or null.
    TControl* FindComponent(const std::string& componentName) const;
    const std::map<std::string, TControl*>& Components() const { return components; }

    void RegisterComponent(TControl& control) { components[control.Name()] = &control; }
    void UnregisterComponent(TControl& control);

    // The living form of that name, or null.
    static TForm* FindForm(const std::string& formName);
    // The modal form open on top, or null.
    static TForm* TopModalForm();
    // Installed by the application object.
    static TModalHost* ModalHost;

    // Shows the form, runs OnShow, and returns once it is hidden again. With
    // no modal host the form closes at once, as if the person closed it.
    TModalResult ShowModal();
    bool Modal() const { return modal; }
    TModalResult ModalResult = TModalResult::mrNone;

    // Hides the window and tells whoever runs it (the main window's close ends
    // the message loop; a modal window's ends its modal loop).
    void Close();
    // The title bar's close button or Escape: OnWindowClose if set, else Close.
    void WindowClose();

    std::function<void()> OnShow;
    std::function<void()> OnClose;
    std::function<void()> OnWindowClose;

    // The control with the input focus; a person's action on a control gives
    // it the focus.
    TControl* ActiveControl() const { return activeControl; }
    void SetActiveControl(TControl* control) { activeControl = control; }

private:
    std::map<std::string, TControl*> components;
    TControl* activeControl = nullptr;
    bool modal = false;
};
