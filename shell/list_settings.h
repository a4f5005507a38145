// What the user made of the list, from one start to the next: its order, its filter, the widths of
// its columns, as keys of the section "Corvane window" of the settings file. What a file of another
// version has there and nobody can read counts as not set.
#pragma once

#include <string>

namespace corvane {

void ReadListSettings(const std::wstring& file);
// False when the file took not all of it.
bool WriteListSettings(const std::wstring& file);

}  // namespace corvane
