// The window of a stand-in.
#pragma once

#include "stand_ins/form.h"

namespace corvane::siblings {

// Opens the form, shows it, and returns when the user has closed it; the result is the process's
// exit status, 1 for a request that nothing could be shown of.
int RunStandIn(const StandIn& standIn);

}  // namespace corvane::siblings
