// Models that cross to other databases and back, as the exchange boxes left the user's choice. What
// fails is reported.
#pragma once

#include "database/scanning.h"

namespace corvane {

struct ExportChoice;  // shell/exchange_boxes.h
struct ImportChoice;

// Appends models of another database to the open one, in the order of the list: sections of a
// legacy database, models of any kind of a model database. Sections and bulkhead arrangements get
// new identifiers; torsion models are copied line by line. A model that cannot be read is left out,
// and the rest continues; when the open database cannot be written, it ends there. The backup holds
// the database as it was before the first one. The last model becomes the current one.
void ImportModels(const ImportChoice& choice);

// Reads a section of the open database that is exported, for the preview of the box. False when it
// could not be read, which is reported; the status line stays otherwise.
bool ReadForPreview(const BlockPlace& place, ExportChoice& choice);

// Writes a model of the open database, a section, into the slot of a legacy database that the user
// chose. False, and reported, when it could not be written.
bool ExportSectionAt(const BlockPlace& place, const ExportChoice& choice);

}  // namespace corvane
