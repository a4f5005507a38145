#include "shell/state.h"

namespace corvane {

ShellState shell;

namespace {

// F1 in the box of a warning is about warnings.
void ShowWarningBox(const std::wstring& text) {
    const HelpAbout warning(kHelpWarning);
    shell.lastWarning = text;
    shell.view.report.showWarningBox(text);
}

}  // namespace

void UseView(const View& view) {
    shell.view = view;
    shell.view.report.isDebugMode = [] { return shell.debugMode; };
    reportView = shell.view.report;
    reportView.showWarningBox = ShowWarningBox;
    reportView.writeLog = [](LogKind kind, std::wstring_view text) {
        WriteEntry(shell.log, kind, text);
    };
}

void LockShell(bool locked) {
    shell.locked = locked;
    shell.view.setLocked(locked);
}

}  // namespace corvane
