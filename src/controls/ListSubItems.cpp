#include "controls/ListSubItems.h"

#include <cstring>
#include <stdexcept>

TListSubItems::TListSubItems(std::initializer_list<AnsiString> texts) {
    Assign(texts);
}

TListSubItems::TListSubItems(const std::vector<AnsiString>& texts) {
    Assign(texts);
}

TListSubItems::TListSubItems(const TListSubItems& other) {
    *this = other;
}

TListSubItems& TListSubItems::operator=(const TListSubItems& other) {
    if (this == &other) return *this;
    if (!other.block) {
        block.reset();
        return *this;
    }
    const std::size_t bytes = other.BlockSize();
    auto copy = std::make_unique_for_overwrite<char[]>(bytes);
    std::memcpy(copy.get(), other.block.get(), bytes);
    block = std::move(copy);
    return *this;
}

TListSubItems& TListSubItems::operator=(std::initializer_list<AnsiString> texts) {
    Assign(texts);
    return *this;
}

// The block: the count, the end of each text counted from the first text's
// start, then the texts; words are copied in and out, never cast to.
template <typename Texts> void TListSubItems::Assign(const Texts& texts) {
    if (texts.size() == 0) {
        block.reset();
        return;
    }
    std::size_t chars = 0;
    for (const AnsiString& text : texts)
        chars += text.view().size();
    const std::size_t head = sizeof(std::uint32_t) * (texts.size() + 1);
    auto fresh = std::make_unique_for_overwrite<char[]>(head + chars);
    const auto put = [&](std::size_t at, std::size_t value) {
        const auto word = static_cast<std::uint32_t>(value);
        std::memcpy(fresh.get() + at * sizeof word, &word, sizeof word);
    };
    put(0, texts.size());
    std::size_t index = 1, end = 0;
    for (const AnsiString& text : texts) {
        std::memcpy(fresh.get() + head + end, text.view().data(), text.view().size());
        end += text.view().size();
        put(index++, end);
    }
    block = std::move(fresh);
}

std::uint32_t TListSubItems::Word(std::size_t at) const {
    std::uint32_t word = 0;
    std::memcpy(&word, block.get() + at * sizeof word, sizeof word);
    return word;
}

std::size_t TListSubItems::BlockSize() const {
    const std::size_t count = size();
    return sizeof(std::uint32_t) * (count + 1) + Word(count);
}

std::string_view TListSubItems::View(std::size_t index) const {
    const std::size_t head = sizeof(std::uint32_t) * (size() + 1);
    const std::size_t start = index == 0 ? 0 : Word(index);
    return {block.get() + head + start, Word(index + 1) - start};
}

AnsiString TListSubItems::at(std::size_t index) const {
    if (index >= size()) throw std::out_of_range("TListSubItems::at");
    return (*this)[index];
}
