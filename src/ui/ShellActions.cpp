#include "ui/ShellActions.h"

namespace {
ShellActions* g_shell = nullptr;
} // namespace

ShellActions* ShellActions::instance() {
    return g_shell;
}

void ShellActions::install(ShellActions* shell) {
    g_shell = shell;
}
