#include "support/NextRegistry.h"

#include <memory>

namespace {

std::unique_ptr<TMemoryRegistry> pending;
std::unique_ptr<TRegistry> HandOver() {
    return std::move(pending);
}

} // namespace

TNextRegistry::TNextRegistry() {
    pending = std::make_unique<TMemoryRegistry>();
    tree = pending.get();
    CreateRegistry = HandOver;
}

TNextRegistry::~TNextRegistry() {
    pending.reset();
    CreateRegistry = nullptr;
}
