// What the shell asks of screen and user (shell/view.h), done with Windows.
#pragma once

#include "shell/view.h"

namespace corvane {

// Every procedure of the record is filled in.
View WindowsView();

}  // namespace corvane
