// The pictures of the model kinds, IML_Small, drawn at the size that the screen's resolution asks
// for.
#pragma once

#include "ui/windows/controls.h"

namespace corvane {

// Small icons in the order of KindIcon: section, bulkhead arrangement, torsion model. The caller
// destroys the list.
HIMAGELIST CreateKindIcons(UINT dpi);

}  // namespace corvane
