// File > Check database: the report on the open database, and from there the repair of what can be
// repaired without loss.
#pragma once

namespace corvane {

// Checks the open database, and shows what was found in a report. Nothing is written; a read-only
// file is checked, too. What fails is reported, and there is no report then: nor when the user
// cancels.
//
// Where something can be repaired, the report has the button Repair: it shows each change before it
// is made, makes all of them as one edit with a history, shows the list of models again with the
// same model selected, and the report as it is then. A read-only database, one on which a program
// of the suite works, and one that has changed since it was checked (3963) are refused before the
// changes are shown.
void CheckOpenDatabase();

}  // namespace corvane
