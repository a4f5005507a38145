#include "shell/commands/help_commands.h"

#include "shell/state.h"
#include "text/version.h"

namespace corvane {

void ME_HelpAbout_Click() {
    shell.screen.showAbout(shell.title + L"v" + VersionText());
}

}  // namespace corvane
