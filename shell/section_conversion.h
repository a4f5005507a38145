// Sections of a legacy database on their way into model databases.
#pragma once

#include <string>
#include <vector>

#include "bsd/basic_ship_data.h"
#include "database/listing.h"
#include "files/file_system.h"
#include "files/progress.h"
#include "legacy/exchange_report.h"

namespace corvane {

// A file in the temporary folder, removed at the end; one that cannot be removed is reported.
struct TemporaryDatabase {
    std::wstring path;
    system::ErrorNumber error = NewTemporaryFile(path);  // why there is no such file
    TemporaryDatabase() = default;
    ~TemporaryDatabase();
    TemporaryDatabase(const TemporaryDatabase&) = delete;
    TemporaryDatabase& operator=(const TemporaryDatabase&) = delete;
};

struct SectionConversion {
    const std::wstring& source;
    std::vector<ModelEntry> sections;  // their numbers are those of the slots
    // A section that cannot be read is left out; else it ends the conversion.
    bool leavesOut = false;
    ExchangeReport& report;
    Progress progress{};
};

// Writes a model database, instead of any file at `path`, of the ship's data and the sections, in
// one pass. What became of each section is added to the report. False, and reported, when it could
// not be written, when a section could not be read that may not be left out, and in silence when
// the user has cancelled.
bool WriteConverted(const std::wstring& path, BasicShipData& bsd, SectionConversion& conversion);

}  // namespace corvane
