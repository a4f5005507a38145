#include "ui/commands/help_commands.h"

#include "app/state.h"
#include "util/version.h"

namespace corvane {

void ME_HelpAbout_Click() {
    shell.screen.showAbout(shell.title + L"v" + VersionText());
}

}  // namespace corvane
