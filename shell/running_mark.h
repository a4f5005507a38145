// The mark in the settings file that a program of the suite works on a database. It outlives a
// shell that is killed meanwhile, so that the next one does not renumber models under that program.
#pragma once

#include <string>

namespace corvane {

void WriteRunningMark(const std::wstring& program, const std::wstring& database);
void RemoveRunningMark();

// Whether the open database may be edited now: asks the user while the mark's program still works
// on it. A mark whose program has ended is removed.
bool ConfirmEdit();

}  // namespace corvane
