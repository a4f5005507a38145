// Pictures as PNG files, which the system's drawing library cairo makes. It is bound when the first
// picture is asked for: the program needs it for nothing else.
#pragma once

#include "tools/console.h"

namespace corvane {

// The procedure that writes a picture of 300 dots per inch; null where the library is not there.
FigureWriter FindPngWriter();

}  // namespace corvane
