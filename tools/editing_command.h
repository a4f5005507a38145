// What the commands that change a file have in common.
#pragma once

#include <functional>
#include <string>

#include "tools/arguments.h"

namespace corvane {

// From now on edits are kept in the history of their files, unless the request has --no-history.
void KeepHistory(const Request& request);

// Makes an edit of the open database, under this name in its history. What fails is reported by
// `edit`.
ExitCode RunEdit(const Request& request, const std::wstring& name,
                 const std::function<bool()>& edit);

// Opens the database of a command that changes it. False, and reported, when it is read-only, and
// when a program of the suite works on it, unless --force was given.
bool OpenForEditing(const std::wstring& operand);

}  // namespace corvane
