// FM_About, the box that says which program this is.
#pragma once

#include <string>

#include "text/version.h"

namespace corvane {

// Shows the box until the user closes it (OK, Enter, Esc): title, `heading`, the warnings of an
// experimental version, and the legal notice, whose text can be copied.
void ShowAbout(const std::wstring& heading, const ProgramVersion& version = kProgramVersion);

}  // namespace corvane
