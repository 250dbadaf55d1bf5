#include "toolkit/core/VyMouseReader.h"

#include <atomic>

namespace {

std::atomic<VyMouseReader::Factory> g_factory{nullptr};

} // namespace

void VyMouseReader::setFactory(Factory factory) {
    g_factory.store(factory);
}

VyMouseReader::Factory VyMouseReader::factory() {
    return g_factory.load();
}
