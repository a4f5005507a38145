// The picture that the preview shows, for other programs.
#pragma once

#include <string>

#include "preview/figure.h"

namespace corvane {

// The section or the bulkheads on a sheet of A4, 297 mm by 210 mm; an empty sheet when neither is
// shown.
Figure PictureShown();

// Writes a figure to a file whose extension says the kind: emf, svg, png or dxf. Another extension,
// and what fails, is reported; a file of that name is as it was then.
bool WritePicture(const Figure& figure, const std::wstring& path);

}  // namespace corvane
