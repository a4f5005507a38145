// The pictures of the model kinds: IML_Small, drawn at the size that the screen's resolution asks
// for, and the same for other pictures.
#pragma once

#include "database/model_kind.h"
#include "ui/pictures/drawn_picture.h"

namespace corvane {

// Width and height of a kind's picture, in units.
inline constexpr int kKindUnits = 16;

// The kind's colour on a background of the system (COLOR_...); that of its text where the kind's
// own would hardly be seen there, as in dark and high-contrast themes.
COLORREF KindColour(ModelKind kind, int background, int text);
// Draws the kind's picture, on a square of kKindUnits.
void DrawKind(DrawnPicture& picture, ModelKind kind, COLORREF colour);

// Small icons in the order of KindIcon: section, bulkhead arrangement, torsion model. The caller
// destroys the list.
HIMAGELIST CreateKindIcons(UINT dpi);

}  // namespace corvane
