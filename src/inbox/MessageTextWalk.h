#pragma once
// The walk over a message text; included by MessageText.h.

#include "inbox/HeaderReader.h"
#include "inbox/MessageText.h"

inline std::string_view FindHeader(const TMessageText& text, std::string_view name) {
    const auto match = text.Find(name, 0);
    return match ? match->value : header::notFound;
}

// A delimiter line right behind a name line is passed over: the next
// delimiter is looked for from the second line after the name.
template <typename AddName, typename Yield>
bool WalkMultipart(const TMessageText& text, AddName&& addName, Yield&& yield) {
    const auto found = text.Find("boundary=", 0);
    if (!found) return false;
    const AnsiString boundary = header::WithoutQuotes(found->value);
    if (boundary.view() == header::notFound || boundary.IsEmpty()) return false;
    std::size_t from = found->next;
    for (;;) {
        yield();
        const auto delimiter = text.Find(boundary.view(), from);
        if (!delimiter || delimiter->value == header::notFound) return true;
        const auto name = text.Find("filename=", delimiter->next);
        if (!name || name->value == header::notFound) return true;
        addName(header::WithoutQuotes(name->value));
        from = text.NextLine(name->next);
    }
}
