#include "controls/Control.h"

#include <algorithm>

#include "controls/Form.h"

TControl::TControl(TForm* owner, std::string name) : owner(owner), name(std::move(name)) {
    if (owner && !this->name.empty()) owner->RegisterComponent(*this);
}

TControl::~TControl() {
    if (owner && !name.empty()) owner->UnregisterComponent(*this);
}

void TControl::SetCaption(const AnsiString& value) {
    if (caption == value) return;
    caption = value;
    Changed(TChange::Properties);
}

void TControl::SetEnabled(bool value) {
    if (enabled == value) return;
    enabled = value;
    Changed(TChange::Properties);
}

void TControl::SetVisible(bool value) {
    if (visible == value) return;
    visible = value;
    Changed(TChange::Properties);
}

void TControl::SetCursor(TCursor value) {
    if (cursor == value) return;
    cursor = value;
    Changed(TChange::Properties);
}

void TControl::SetWidth(int value) {
    if (width == value) return;
    width = value;
    Changed(TChange::Properties);
}

void TControl::SetHeight(int value) {
    if (height == value) return;
    height = value;
    Changed(TChange::Properties);
}

void TControl::SetHint(const AnsiString& value) {
    if (hint == value) return;
    hint = value;
    Changed(TChange::Properties);
}

bool TControl::EnabledWithParents() const {
    for (const TControl* at = this; at; at = at->parent)
        if (!at->enabled) return false;
    return true;
}

TPoint TControl::ClientToScreen(TPoint client) const {
    return ScreenMapper ? ScreenMapper(client) : client;
}

int TControl::Subscribe(Listener listener) {
    listeners.emplace_back(nextToken, std::move(listener));
    return nextToken++;
}

void TControl::Unsubscribe(int token) {
    std::erase_if(listeners, [token](const auto& entry) { return entry.first == token; });
}

void TControl::Changed(TChange change) {
    // A listener may unsubscribe while it runs, so walk a copy.
    const auto current = listeners;
    for (const auto& [token, listener] : current)
        listener(*this, change);
}
