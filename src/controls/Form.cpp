#include "controls/Form.h"

#include <algorithm>

namespace {

std::map<std::string, TForm*>& LivingForms() {
    static std::map<std::string, TForm*> forms;
    return forms;
}

std::vector<TForm*>& ModalStack() {
    static std::vector<TForm*> stack;
    return stack;
}

} // namespace

TModalHost* TForm::ModalHost = nullptr;

TForm::TForm(std::string name) : TControl(nullptr, std::move(name)) {
    LivingForms()[Name()] = this;
}

TForm::~TForm() {
    auto& forms = LivingForms();
    if (auto found = forms.find(Name()); found != forms.end() && found->second == this)
        forms.erase(found);
    std::erase(ModalStack(), this);
}

TControl* TForm::FindComponent(const std::string& componentName) const {
    const auto found = components.find(componentName);
    return found == components.end() ? nullptr : found->second;
}

void TForm::UnregisterComponent(TControl& control) {
    components.erase(control.Name());
    if (activeControl == &control) activeControl = nullptr;
}

TForm* TForm::FindForm(const std::string& formName) {
    const auto found = LivingForms().find(formName);
    return found == LivingForms().end() ? nullptr : found->second;
}

TForm* TForm::TopModalForm() {
    return ModalStack().empty() ? nullptr : ModalStack().back();
}

TModalResult TForm::ShowModal() {
    ModalResult = TModalResult::mrNone;
    modal = true;
    ModalStack().push_back(this);
    SetVisible(true);
    if (OnShow) OnShow();
    if (ModalHost && Visible()) ModalHost->RunModal(*this);
    // A loop that ended with the form still up (no host, the program ending)
    // leaves it as the title bar's close would, and hidden in any case.
    if (Visible()) WindowClose();
    if (Visible()) SetVisible(false);
    std::erase(ModalStack(), this);
    modal = false;
    if (ModalResult == TModalResult::mrNone) ModalResult = TModalResult::mrCancel;
    return ModalResult;
}

void TForm::Close() {
    SetVisible(false);
    if (OnClose) OnClose();
}

void TForm::WindowClose() {
    if (OnWindowClose)
        OnWindowClose();
    else
        Close();
}
