// The box Settings: folders, limits, the bounds of the history, and where all this is kept.
#pragma once

#include "shell/settings_choice.h"

namespace corvane {

// True when the user accepted: `choice` then has what is in the fields, all of it valid.
bool AskSettings(SettingsChoice& choice);

}  // namespace corvane
