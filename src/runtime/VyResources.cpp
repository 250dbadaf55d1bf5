#include "runtime/VyResources.h"

namespace {
// Written once during start-up, before any other thread reads it.
VyString g_root;
} // namespace

void VyResources::setRoot(const VyString& root) {
    g_root = root;
}

VyString VyResources::root() {
    return g_root;
}

VyString VyResources::path(const VyString& relative) {
    if (g_root.isEmpty() || relative.startsWith("/"))
        return relative;
    if (g_root.endsWith("/"))
        return g_root + relative;
    return g_root + "/" + relative;
}
