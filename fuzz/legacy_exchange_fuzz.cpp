// Any bytes as a section that is exported to a legacy database through the library, imported, and
// exported again over the same slot: what came through once comes through unchanged.
#include "fuzz/fuzz.h"

#include <cstring>
#include <memory>
#include <string>

#include "database/section_block.h"
#include "fuzz/block_text.h"
#include "legacy/exchange.h"
#include "platform/system.h"
#include "platform/ztvelk32.h"

namespace corvane {
namespace {

using fuzz::Require;

std::wstring NewDatabase() {
    static std::wstring path;
    if (path.empty()) system::NewTemporaryName(system::TemporaryDirectory(), L"lex", path);
    int16_t status = -1;
    createvelkdb(system::AnsiFromWide(path).c_str(), &status);
    Require(status == kLegacyDone);
    return path;
}

std::unique_ptr<LegacySectionRecord> RecordInSlot(const std::wstring& path, int16_t slot) {
    auto record = std::make_unique<LegacySectionRecord>();
    const std::string file = system::AnsiFromWide(path);
    Require(importvelkmainsec(file.c_str(), slot, &record->main) == kLegacyDone);
    Require(importsectiongeometry(file.c_str(), slot, &record->geometry) == kLegacyDone);
    Require(importvelkcompload(file.c_str(), slot, nullptr, &record->compLoad) == kLegacyDone);
    return record;
}

SectionModel Imported(const std::wstring& path) {
    SectionModel section;
    Losses losses;
    Require(ImportSection(path, 1, section, losses));
    Require(section.panels.size() <= kLegacyStrakes);
    Require(section.compartments.size() <= kLegacyCompartments);
    return section;
}

void Exchange(SectionModel& section) {
    const std::wstring path = NewDatabase();
    ExchangeReport report;
    BasicShipData ship;
    for (const int item : {1, 2, 3, 6, 9}) ship.MainData(item) = 20;
    Require(ExportSection({path, 1}, section, ship, report));
    SectionModel back = Imported(path);
    Require(ExportSection({path, 1, false}, back, ship, report));
    const auto once = RecordInSlot(path, 1);
    back = Imported(path);
    Require(ExportSection({path, 1, false}, back, ship, report));
    Require(std::memcmp(RecordInSlot(path, 1).get(), once.get(), sizeof(*once)) == 0);
    int16_t status = -1;
    Require(ListLegacySections(path, status).size() == 1 && status == kLegacyDone);
    system::RemoveFile(path);
}

void ExchangeBytes(std::string_view bytes) {
    SectionModel section;
    fuzz::ReadBytes(
        bytes, [&](TextReader& reader) { ReadSectionLines(reader, ModelKind::kSection, section); });
    Exchange(section);
}

}  // namespace
}  // namespace corvane

CORVANE_FUZZ_TARGET(legacy_exchange) {
    if (bytes.size() <= 16 * 1024) corvane::ExchangeBytes(bytes);
}
