#pragma once
// Menu entries and popup menus. A popup opens through the dialog service,
// which answers with the entry the person chose; that entry's click arrives
// through the message loop, as a menu command does.

#include <functional>
#include <memory>
#include <vector>

#include "controls/Control.h"

// A caption without its first "&", the hot-key mark a menu may have put in.
inline AnsiString CaptionWithoutHotKey(AnsiString caption) {
    if (const int at = caption.Pos("&"); at > 0) caption.Delete(at, 1);
    return caption;
}

class TMenuItem {
public:
    explicit TMenuItem(AnsiString caption = {}) : Caption(std::move(caption)) {}

    AnsiString Caption;  // "-" stands for a separator line
    bool Enabled = true; // a disabled entry cannot be chosen
    std::function<void(TMenuItem& sender)> OnClick;

    int GetCount() const { return static_cast<int>(items.size()); }
    TMenuItem& Items(int index) { return *items.at(static_cast<std::size_t>(index)); }
    const TMenuItem& Items(int index) const { return *items.at(static_cast<std::size_t>(index)); }
    // The subentry whose caption matches, ignoring case and hot-key marks; null if none.
    TMenuItem* Find(const AnsiString& caption);
    // A caption as Find compares it: without hot-key marks ("&&" is one "&").
    static std::string MatchText(std::string_view caption);
    TMenuItem& Insert(int index, std::unique_ptr<TMenuItem> item);
    TMenuItem& Add(std::unique_ptr<TMenuItem> item) { return Insert(GetCount(), std::move(item)); }
    void Click() {
        if (OnClick) OnClick(*this);
    }

private:
    std::vector<std::unique_ptr<TMenuItem>> items;
};

class TPopupMenu : public TControl {
public:
    using TControl::TControl;

    TMenuItem Items;
    std::function<void()> OnPopup;

    // Runs OnPopup, shows the menu at a screen point and returns once it has
    // closed. The chosen entry's click is posted to the message loop.
    void Popup(TPoint screen);
};
