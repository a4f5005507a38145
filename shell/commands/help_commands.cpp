#include "shell/commands/help_commands.h"

#include "shell/state.h"
#include "text/version.h"

namespace corvane {

void ME_HelpAbout_Click() {
    shell.view.showAbout(shell.title + L" v" + VersionText(kProgramVersion, shell.debugMode));
}

}  // namespace corvane
