#pragma once
// The order of a list that sorts by one text per row, in a form that needs
// nothing but the texts: a copy of them can be sorted on a thread of its own
// while the window's thread goes on, and only the resulting order of row
// numbers comes back.

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

struct TListItem;

// A text's place in the order as far as 16 bytes of it tell, the first 16 at
// depth 0, the next at depth 1, and so on. Texts go by their keys where those
// differ; texts with equal whole keys (texts that end within those bytes) are
// equal; the rest go one depth further.
struct TSortKey {
    std::uint64_t high = 0, low = 0;
    bool whole = false;
};

struct TTextOrder {
    // The row's text; called on the window's thread only.
    std::function<std::string_view(const TListItem& row)> Text;
    // Key and Compare look at nothing but their arguments, so any thread may
    // call them. Compare: negative puts a above b, positive below, zero: equal.
    std::function<TSortKey(std::string_view text, unsigned depth)> Key;
    std::function<int(std::string_view a, std::string_view b)> Compare;
};

// The texts of a list's rows, copied into one block.
class TSortTexts {
public:
    void Add(std::string_view text);
    std::size_t Count() const { return ends.size(); }
    std::string_view operator[](std::size_t i) const {
        const std::size_t begin = i == 0 ? 0 : ends[i - 1];
        return std::string_view(bytes).substr(begin, ends[i] - begin);
    }

private:
    std::string bytes;
    std::vector<std::size_t> ends;
};

// The row numbers of texts in order; equal texts keep their order.
std::vector<std::uint32_t> OrderOfTexts(const TSortTexts& texts, const TTextOrder& order);
