#include "controls/Form.h"

TControl* TForm::FindComponent(const std::string& componentName) const {
    const auto found = components.find(componentName);
    return found == components.end() ? nullptr : found->second;
}
