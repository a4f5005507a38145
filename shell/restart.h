// How the system starts the program again after a crash: with the database that was open and the
// rule set that was chosen, and no other switch.
#pragma once

#include <string>

namespace corvane {

// What follows the program's name then.
std::wstring RestartArguments();

// Gives them to the system if they are others than before. Before a database was open there is
// nothing to start again for.
void NoteRestart();

}  // namespace corvane
