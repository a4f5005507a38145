// A figure as an SVG 1.1 file in millimetres: a group for each layer (ids "compartment", "plate",
// "stiffener", "text"), from the lowest one up.
#pragma once

#include "files/text_file.h"
#include "preview/figure.h"

namespace corvane {

// Writes it to a file that has been created; what fails is in the writer's error.
void WriteSvg(const Figure& figure, TextWriter& writer);

}  // namespace corvane
