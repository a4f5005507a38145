#include "shell/state.h"

namespace corvane {

ShellState shell;

void UseView(const View& view) {
    shell.view = view;
    shell.view.report.isDebugMode = [] { return shell.debugMode; };
    reportView = shell.view.report;
}

void LockShell(bool locked) {
    shell.locked = locked;
    shell.view.setLocked(locked);
}

}  // namespace corvane
