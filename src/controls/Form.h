#pragma once
// A window model: its caption and visibility, and its controls by name, as a
// form finds its components.

#include <functional>
#include <map>
#include <string>

#include "controls/Control.h"

enum class TModalResult { mrNone = 0, mrOk = 1, mrCancel = 2 };

class TForm : public TControl {
public:
    explicit TForm(std::string name) : TControl(nullptr, std::move(name)) {}

    // The control called name, or null.
    TControl* FindComponent(const std::string& componentName) const;
    const std::map<std::string, TControl*>& Components() const { return components; }

    void RegisterComponent(TControl& control) { components[control.Name()] = &control; }
    void UnregisterComponent(TControl& control) { components.erase(control.Name()); }

    // Hides the window and tells whoever runs it (the main window's close ends
    // the message loop; a modal window's ends its modal loop).
    void Close() {
        SetVisible(false);
        if (OnClose) OnClose();
    }
    std::function<void()> OnClose;

private:
    std::map<std::string, TControl*> components;
};
