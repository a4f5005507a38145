// A figure as a DXF drawing of release 12 (AC1009): in metres of the ship, on the layers PLATE,
// STIFFENER, COMPARTMENT and TEXT. Lines are LINE or POLYLINE, areas closed POLYLINEs, texts TEXT.
#pragma once

#include "files/text_file.h"
#include "preview/figure.h"

namespace corvane {

// Writes it to a file that has been created; what fails is in the writer's error.
void WriteDxf(const Figure& figure, TextWriter& writer);

}  // namespace corvane
