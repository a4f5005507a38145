// Models that cross to other databases and back, as the exchange boxes left the user's choice. What
// fails is reported.
#pragma once

#include <vector>

#include "database/listing.h"
#include "database/scanning.h"

namespace corvane {

struct ExportChoice;  // shell/exchange_boxes.h
struct ImportChoice;

// Appends models of another database to the open one, in the order of the list and in one rewrite:
// sections of a legacy database, models of any kind of a model database. Sections and bulkhead
// arrangements get new identifiers; torsion models are copied line by line. A model that cannot be
// read is left out; when the open database cannot be written, or the user cancels, it is as it was.
// The backup holds the database as it was before. The last model becomes the current one.
void ImportModels(const ImportChoice& choice);

// Reads what the box of an export shows of sections of the open database: the first one, and
// whether there is room for all of them. False when the first one could not be read, which is
// reported; the status line stays otherwise.
bool ReadForPreview(const std::vector<ModelEntry>& models, ExportChoice& choice);

// Makes a legacy database without sections, with the ship's data of the open database. False, and
// reported, when it could not be made: a file of that name is then as it was.
bool MakeLegacyDatabase(const std::wstring& path);

// Writes sections of the open database into the legacy database that the user chose: one into the
// slot that was chosen, several into new ones. One of several that cannot be read is left out.
// False, and reported, when nothing could be written, or the user has cancelled: the file is as it
// was.
bool ExportModels(const std::vector<ModelEntry>& models, const ExportChoice& choice);

}  // namespace corvane
