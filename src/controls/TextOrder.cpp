#include "controls/TextOrder.h"

#include <algorithm>

namespace {

struct TKeyed {
    TSortKey key;
    std::uint32_t index;
};
using TKeyedIt = std::vector<TKeyed>::iterator;

// Each run of equal keys is sorted on by the next 16 bytes of its texts.
// Equal keys of which only some are whole cannot happen with texts free of
// NUL bytes; such a run, and one deeper than any text should be, goes to
// Compare. Every step is stable, so equal texts keep their order.
void SortByKeys(const TSortTexts& texts, const TTextOrder& order, TKeyedIt first, TKeyedIt last,
                unsigned depth) {
    constexpr unsigned deepest = 64;
    const auto same = [](const TKeyed& a, const TKeyed& b) {
        return a.key.high == b.key.high && a.key.low == b.key.low;
    };
    std::stable_sort(first, last, [](const TKeyed& a, const TKeyed& b) {
        return a.key.high != b.key.high ? a.key.high < b.key.high : a.key.low < b.key.low;
    });
    for (auto run = first; run != last;) {
        const auto end =
            std::find_if(run + 1, last, [&](const TKeyed& k) { return !same(k, *run); });
        const auto wholeKeys = std::count_if(run, end, [](const TKeyed& k) { return k.key.whole; });
        if (wholeKeys == 0 && end - run > 1 && depth < deepest) {
            for (auto k = run; k != end; ++k)
                k->key = order.Key(texts[k->index], depth + 1);
            SortByKeys(texts, order, run, end, depth + 1);
        } else if (wholeKeys != end - run) {
            std::stable_sort(run, end, [&](const TKeyed& a, const TKeyed& b) {
                return order.Compare(texts[a.index], texts[b.index]) < 0;
            });
        }
        run = end;
    }
}

} // namespace

void TSortTexts::Add(std::string_view text) {
    bytes.append(text);
    ends.push_back(bytes.size());
}

std::vector<std::uint32_t> OrderOfTexts(const TSortTexts& texts, const TTextOrder& order) {
    std::vector<TKeyed> keyed;
    keyed.reserve(texts.Count());
    for (std::uint32_t i = 0; i < texts.Count(); ++i)
        keyed.push_back({order.Key(texts[i], 0), i});
    SortByKeys(texts, order, keyed.begin(), keyed.end(), 0);
    std::vector<std::uint32_t> rows(keyed.size());
    for (std::size_t i = 0; i < keyed.size(); ++i)
        rows[i] = keyed[i].index;
    return rows;
}
