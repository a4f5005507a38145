// What somebody who looks into a problem needs to know, as a text for the clipboard.
#pragma once

#include <string>

namespace corvane {

struct Screen {
    int width = 0;  // pixels
    int height = 0;
    int dpi = 0;
};

// The compiler and for which processors it compiled: "64 bits, GCC 12.2.0".
std::wstring BuildText();

// The program and its build, the system and the screen, where settings and programs are, which
// companion libraries are loaded, what is open, and the last warning; lines ended by CR LF. Asks no
// disk but for a library that is not loaded yet.
std::wstring DetailsForReport();

}  // namespace corvane
