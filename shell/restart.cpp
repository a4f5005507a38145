#include "shell/restart.h"

#include "shell/state.h"

namespace corvane {

std::wstring RestartArguments() {
    std::wstring arguments;
    if (IsDatabaseOpen()) arguments = L'"' + shell.database.path + L'"';
    if (shell.milMode) arguments += L" /mil";
    if (shell.jbpMode) arguments += L" /JBP";
    return arguments;
}

void NoteRestart() {
    std::wstring arguments = RestartArguments();
    if (arguments == shell.restartArguments) return;
    shell.restartArguments = std::move(arguments);
    shell.view.setRestart(shell.restartArguments);
}

}  // namespace corvane
