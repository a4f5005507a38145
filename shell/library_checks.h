// The versions of the companion libraries that the program works with.
#pragma once

#include <span>

#include "platform/companion.h"

namespace corvane {

using VersionFunction = LibraryFunction<float CORVANE_STDCALL()>;

struct LibraryCheck {
    const wchar_t* label;  // the library's name in the report
    VersionFunction* function;
    float required;
    // Data parts must be exactly of the version that the program knows; code may be newer.
    bool exactly;
};

// The five checks, in the order in which they are made.
std::span<const LibraryCheck> LibraryChecks();

// Makes one check. False: message 1052 was reported with the label, the found version (0 when
// library or function is missing), the required one, and the system's error number (0 when the
// library is there but of the wrong version).
bool CheckLibrary(const LibraryCheck& check);

// Makes all checks; the first that fails ends them, and the result is false. In debug mode the
// current directory is changed before, to what the settings file names, else to the drive's root.
bool CheckLibraryVersions();

}  // namespace corvane
