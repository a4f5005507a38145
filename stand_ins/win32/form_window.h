// The window of a stand-in.
#pragma once

#include "stand_ins/form.h"

namespace corvane::stand_ins {

// Opens the form, shows it, and returns when the user has closed it. The result is the process's
// exit status: 0, or 1 when the request could not be opened.
int RunStandIn(const StandIn& standIn);

}  // namespace corvane::stand_ins
