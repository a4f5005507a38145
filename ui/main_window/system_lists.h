// The system's own lists of recent files: that of the Start menu, and the jump list of the program,
// which the system makes of it where the extension is registered.
#pragma once

#include <string>

namespace corvane {

// Under which name the system gathers the program's windows and files, wherever the program is.
// Called before the first window. A system without such lists has none.
void NameApplication();

// Not of a portable program, which leaves nothing on the computer. A refusal by the system is
// nothing that the user must know.
void AddToSystemsLists(const std::wstring& path);

}  // namespace corvane
