// The box Earlier versions: the versions of the open database, the models of the selected one, and
// what can be done with it.
#pragma once

#include "shell/edit_history.h"

namespace corvane {

// True when the user wants the version `choice.chosen` back. Copies are saved while the box is
// open.
bool AskVersion(VersionChoice& choice);

}  // namespace corvane
