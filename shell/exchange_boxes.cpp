#include "shell/exchange_boxes.h"

#include "bsd/basic_ship_data.h"
#include "bsd/bsd_file.h"
#include "bsd/labels.h"
#include "database/listing.h"
#include "database/scanning.h"
#include "files/file_system.h"
#include "files/paths.h"
#include "legacy/exchange.h"
#include "platform/ztvelk32.h"
#include "report/reporters.h"
#include "shell/exchange_notes.h"
#include "shell/preview_pane.h"
#include "shell/state.h"

namespace corvane {
namespace {

// Sections beyond the library's list have their slot's number in front.
std::vector<ModelEntry> ListLegacy(const std::wstring& path) {
    int16_t status = 0;
    LegacySections all = ListAllLegacySections(path, status);
    RequireLegacyRead(path, status);
    for (ModelEntry& section : all.sections) {
        if (section.number <= kLegacyListedSections) continue;
        section.name = FormatMessage(kMsgSectionOfNumber, {section.number, section.name});
    }
    return all.sections;
}

// False when the user cancelled.
bool ListFile(const std::wstring& path, std::vector<ModelEntry>& models) {
    if (!IsLegacyDatabase(path)) {
        return !RequireDatabaseFile(path) || ListModelsWithPositions(path, models);
    }
    models = ListLegacy(path);
    return true;
}

bool ReadFromLegacy(const std::wstring& path, int32_t slot, SectionModel& section,
                    BasicShipData& bsd) {
    Losses losses;  // the picture shows what is there; the import reports the rest
    return ImportSection(path, static_cast<int16_t>(slot), section, losses) &&
           RequireLegacyRead(path, LoadBsdFromLegacy(path, bsd));
}

// A model without ship's data, which is reported, can be drawn.
bool ReadFromDatabase(const std::wstring& path, const ExchangeItem& item, PreviewPane& pane,
                      BasicShipData& bsd) {
    ModelEntry model;
    std::vector<ModelEntry> models;
    if (!ReadModelAt(path, item.place, model) &&
        !(ListModels(path, models) && RequireModel(models, item.place.number, path, model))) {
        return false;
    }
    if (!ReadIntoPane(pane, path, PlaceOf(model), item.kind)) return false;
    LoadBsdFromDatabase(path, bsd);
    return true;
}

// Whether there may be sections that are not listed is said once.
void ReportSectionsNotListed(const std::wstring& path, size_t listed) {
    if (CountLegacySections(path, listed) != kSlotsUnknown) return;
    ReportMessage(kMsgMoreSections, {path, static_cast<int32_t>(listed)});
}

}  // namespace

bool IsLegacyDatabase(const std::wstring& path) {
    return FileExtension(path) == L"vel";
}

std::vector<ExchangeItem> ListForExchange(const std::wstring& path) {
    std::vector<ExchangeItem> items;
    ListForExchange(path, items);
    return items;
}

bool ListForExchange(const std::wstring& path, std::vector<ExchangeItem>& items) {
    items.clear();
    if (!FileExists(path)) {
        ReportMessage(kMsgFileMissing, {path});
        return true;
    }
    const bool isLegacy = IsLegacyDatabase(path);
    std::vector<ModelEntry> models;
    if (!ListFile(path, models)) return false;
    for (const ModelEntry& model : models) {
        const int32_t number = isLegacy ? static_cast<int32_t>(items.size() + 1) : model.number;
        items.push_back({model.name + FactsOf(model.kind).exchangeSuffix, number, model.kind,
                         PlaceOf(model), model.hasOwnNumber ? model.x : -1});
    }
    return true;
}

ExchangeList ListOfFile(const std::wstring& path) {
    if (!FileExists(path)) return {{}, L"No DB Corvane", {}};
    if (IsDatabaseOpen() && IsSameFile(path, shell.database.path)) {
        return {{}, GetMessage(kMsgOpenDatabaseChosen), {}};
    }
    ExchangeList list;
    if (!ListForExchange(path, list.items)) {
        list.hint = FormatMessage(kMsgReadingCancelled, {path});
        return list;
    }
    if (list.items.empty()) list.hint = L"No Section neither bulkead";
    if (IsLegacyDatabase(path)) ReportSectionsNotListed(path, list.items.size());
    list.ship = ShipNoteOfFile(path);
    return list;
}

bool RequireSelection(bool isThere) {
    if (!isThere) reportView.showPlainBox(L"Please select a section");
    return isThere;
}

bool RequireChosenFile(const std::wstring& path) {
    if (path.empty()) reportView.showPlainBox(GetMessage(kMsgNoFileSelected));
    return !path.empty();
}

std::wstring BrowseTypes(const std::wstring& pattern) {
    const std::wstring all = GetMessage(kMsgAllDatabaseFiles);
    if (pattern.starts_with(L"*.vel")) return all + GetMessage(kMsgLegacyFiles);
    return all + GetMessage(kMsgOldDatabaseFiles) + GetMessage(kMsgDatabaseFiles);
}

bool ReadForExchange(const std::wstring& path, const ExchangeItem& item, PreviewPane& pane,
                     BasicShipData& bsd) {
    if (!WhyNoPicture(item.kind).empty()) return false;
    pane.section = SectionModel();
    bsd = BasicShipData();
    return IsLegacyDatabase(path) ? ReadFromLegacy(path, item.number, pane.section, bsd)
                                  : ReadFromDatabase(path, item, pane, bsd);
}

std::wstring ServiceText(const BasicShipData& bsd) {
    return bsd.Titles(1).Trimmed() + L" (" + ShipTypeName(bsd.ShipType(), shell.milMode) + L")";
}

}  // namespace corvane
