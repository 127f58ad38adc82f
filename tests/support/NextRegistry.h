#pragma once
// The registry that the next TEMailReg reads: a test fills it, and the
// program's own code takes it over through CreateRegistry.

#include "platform/MemoryRegistry.h"

class TNextRegistry {
public:
    TNextRegistry();
    ~TNextRegistry();
    TNextRegistry(const TNextRegistry&) = delete;
    TNextRegistry& operator=(const TNextRegistry&) = delete;

    // Valid until a TEMailReg takes it over.
    TMemoryRegistry& Tree() { return *tree; }

private:
    TMemoryRegistry* tree;
};
