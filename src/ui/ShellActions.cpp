#include "ui/ShellActions.h"

#include "runtime/VyLog.h"

namespace {
ShellActions* g_shell = nullptr;
} // namespace

ShellActions* ShellActions::instance() {
    return g_shell;
}

void ShellActions::install(ShellActions* shell) {
    g_shell = shell;
}

void ShellActions::openWizard() {
    VY_GUI_LOG("start-up wizard not available\n");
}
