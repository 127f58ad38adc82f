#pragma once
// The texts of a row after its caption, kept in one block: a count, where
// each text ends, then the texts back to back. A list of 100,000 rows holds
// one small allocation per row for them, where a vector of strings holds
// seven. Texts are read as AnsiString copies, or as views with View.

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <string_view>
#include <vector>

#include "foundation/AnsiString.h"

class TListSubItems {
public:
    TListSubItems() = default;
    TListSubItems(std::initializer_list<AnsiString> texts); // NOLINT: braced rows
    TListSubItems(const std::vector<AnsiString>& texts);    // NOLINT
    TListSubItems(const TListSubItems& other);
    TListSubItems(TListSubItems&&) noexcept = default;
    TListSubItems& operator=(const TListSubItems& other);
    TListSubItems& operator=(TListSubItems&&) noexcept = default;
    TListSubItems& operator=(std::initializer_list<AnsiString> texts);
    ~TListSubItems() = default;

    std::size_t size() const { return block ? Word(0) : 0; }
    bool empty() const { return size() == 0; }
    std::string_view View(std::size_t index) const;
    AnsiString operator[](std::size_t index) const { return AnsiString(View(index)); }
    // As operator[], but std::out_of_range past the end.
    AnsiString at(std::size_t index) const;
    AnsiString back() const { return (*this)[size() - 1]; }

    class const_iterator {
    public:
        using iterator_category = std::input_iterator_tag;
        using value_type = AnsiString;
        using difference_type = std::ptrdiff_t;
        using pointer = void;
        using reference = AnsiString;
        const_iterator(const TListSubItems* items, std::size_t index)
            : items(items), index(index) {}
        AnsiString operator*() const { return (*items)[index]; }
        const_iterator& operator++() {
            ++index;
            return *this;
        }
        const_iterator operator++(int) {
            const const_iterator was = *this;
            ++index;
            return was;
        }
        bool operator==(const const_iterator& other) const { return index == other.index; }

    private:
        const TListSubItems* items;
        std::size_t index;
    };
    const_iterator begin() const { return {this, 0}; }
    const_iterator end() const { return {this, size()}; }

private:
    template <typename Texts> void Assign(const Texts& texts);
    std::uint32_t Word(std::size_t at) const;
    std::size_t BlockSize() const;

    std::unique_ptr<char[]> block;
};
