#pragma once
// A list whose sort mode the sort state of TUtils switches (the message list).

enum class TSortType { stNone, stText };

class TSortable {
public:
    // stText while stNone sorts once; the value it already has does nothing.
    virtual void SetSortType(TSortType value) = 0;

protected:
    ~TSortable() = default;
};
