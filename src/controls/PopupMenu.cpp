#include "controls/PopupMenu.h"

#include "foundation/CaseFold.h"

namespace {

std::string WithoutHotKeys(std::string_view caption) {
    std::string out;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&' && i + 1 < caption.size()) ++i; // "&&" stands for one "&"
        out += caption[i];
    }
    return out;
}

} // namespace

std::string TMenuItem::MatchText(std::string_view caption) {
    return WithoutHotKeys(caption);
}

TMenuItem* TMenuItem::Find(const AnsiString& caption) {
    const std::string wanted = WithoutHotKeys(caption.view());
    for (auto& item : items)
        if (casefold::CompareText(WithoutHotKeys(item->Caption.view()), wanted) == 0)
            return item.get();
    return nullptr;
}

TMenuItem& TMenuItem::Insert(int index, std::unique_ptr<TMenuItem> item) {
    if (index < 0 || index > GetCount()) index = GetCount();
    return **items.insert(items.begin() + index, std::move(item));
}
