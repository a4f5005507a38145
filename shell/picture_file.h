// Models as pictures for other programs: on a sheet of A4, 297 mm by 210 mm, without a title block.
#pragma once

#include <string>
#include <vector>

#include "preview/figure.h"
#include "shell/model_drawing.h"
#include "shell/new_file.h"

namespace corvane {

// What the preview shows, with the table of what is marked when the user wants it; an empty sheet
// when it shows nothing.
Figure PictureShown();
// A section, which can be drawn.
Figure PictureOf(SectionModel& section);

// The kinds of files, in the order of the prompt's types.
struct PictureKind {
    std::wstring name;       // for the user: "Bitmap (*.png)"
    std::wstring extension;  // in lower case
};
std::vector<PictureKind> PictureKinds();

// A figure as a file of these kinds, like WriteTextFile.
system::ErrorNumber WriteSvgFile(const Figure& figure, const std::wstring& path);
system::ErrorNumber WriteDxfFile(const Figure& figure, const std::wstring& path);

// Writes a figure to a file whose extension says the kind: emf, svg, png or dxf; another extension
// is a failure. What ends otherwise than well is reported; a file of that name is as it was then.
FileEnd WritePicture(const Figure& figure, const std::wstring& path);

}  // namespace corvane
