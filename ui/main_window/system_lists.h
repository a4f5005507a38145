// The system's own lists of recent files: that of the Start menu, and the jump list of the program,
// which the system makes of it where the extension is registered. The system knows the program by
// its path, as it knows the shortcuts to it: they share a button of the task bar.
#pragma once

#include <string>

namespace corvane {

// Not of a portable program, which leaves nothing on the computer. A refusal by the system is
// nothing that the user must know.
void AddToSystemsLists(const std::wstring& path);

}  // namespace corvane
