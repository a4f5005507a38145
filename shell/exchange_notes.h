// What the boxes FM_Export and FM_Inport say before OK, so that nobody learns it afterwards:
// whether a DOS database has room, and that a file is of another ship.
#pragma once

#include <string>
#include <vector>

#include "bsd/basic_ship_data.h"
#include "database/listing.h"
#include "database/model_kind.h"
#include "database/section.h"
#include "legacy/exchange_report.h"

namespace corvane {

// Whether a DOS database has room for a section, with the counts that decide it.
std::wstring RoomNote(const SectionModel& section);
// The same of several sections of a database. Those that cannot be read are not counted. Empty when
// the user has cancelled.
std::wstring RoomNote(const std::wstring& path, const std::vector<ModelEntry>& sections);

// What distinguishes the ship of a file from another one: its names, dimensions and frames. Empty
// where nothing does, and where one of them is not known.
std::wstring ShipNote(const BasicShipData& bsd, const BasicShipData& open);
// The same of a file that the user chose, and the open database.
std::wstring ShipNoteOfFile(const std::wstring& path);

// After an import of the ship's data: those of its titles, main data and reduction factor that are
// other ones in the database than they were read, as the file has them.
void NoteSavedShip(const BasicShipData& read, const BasicShipData& saved, Losses& losses);

// A model's kind and, unless it has none, its position [m].
std::wstring ModelNote(ModelKind kind, float x_m);

}  // namespace corvane
