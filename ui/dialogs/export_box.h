// FM_Export, the box that asks where a section goes in a legacy database.
#pragma once

#include "shell/exchange_boxes.h"

namespace corvane {

// Shows the box; the name in `choice` is proposed. True with OK: `choice` is filled in. Otherwise
// it is left as it was.
bool AskExport(ExportChoice& choice);

}  // namespace corvane
