// File > Compare with: the open database and another one, or an earlier version of it, in the box
// of a comparison (shell/comparison_box.h); and the import from there.
#pragma once

#include <vector>

#include "files/history.h"
#include "shell/comparison.h"

namespace corvane {

// Asks for a file, compares the open database with it, and shows what differs. The open database
// itself is refused, and what is no database is reported (1083): there is no box then, nor when the
// user cancels. Nothing is written; files that are read-only are compared, too.
void CompareWithFile();
// The same with a version of the open database. True when models were imported.
bool CompareWithVersion(const TextVersion& version);

// Appends models that the other database of a comparison has to the open one, under new numbers and
// as one edit, after a question; then compares again. A read-only database, one on which a program
// of the suite works, files that have changed since they were compared, and models whose number is
// not theirs alone (3522) are refused before the question. True when `comparison` is a new one.
bool ImportFromCompared(Comparison& comparison, const std::vector<ModelEntry>& models);

}  // namespace corvane
