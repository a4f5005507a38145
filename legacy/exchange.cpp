#include "legacy/exchange.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <memory>

#include "bsd/bsd_file.h"
#include "bsd/legacy_form.h"
#include "database/scanning.h"
#include "database/section_block.h"
#include "files/file_system.h"
#include "legacy/section_from_legacy.h"
#include "legacy/section_to_legacy.h"
#include "platform/system.h"
#include "platform/ztvelk32.h"
#include "report/reporters.h"
#include "text/text.h"

namespace corvane {
namespace {

// What a status word holds until the library sets it: a library that is missing has failed.
constexpr int16_t kNoAnswer = -1;

constexpr int16_t kShortTextLength = 20;

// The ship's data as they cross to the library.
struct BsdBuffer {
    alignas(LegacyBsd) std::array<unsigned char, kLegacyBsdBufferSize> bytes{};
    LegacyBsd& Record() { return *reinterpret_cast<LegacyBsd*>(bytes.data()); }
};

template <size_t length>
void ConvertText(char (&text)[length], std::string (*convert)(std::string_view)) {
    std::string bytes = convert({text, length});
    bytes.resize(length, ' ');
    bytes.copy(text, length);
}

int16_t ExportBsd(const std::wstring& path, const BasicShipData& bsd) {
    BsdBuffer buffer;
    ToLegacyForm(bsd, buffer.Record());
    for (auto& title : buffer.Record().Titles) ConvertText(title, system::OemFromAnsi);
    int16_t status = kNoAnswer;
    exportvelkbsd(system::AnsiFromWide(path).c_str(), &buffer.Record(), &status);
    return status;
}

int16_t AddSlot(const std::wstring& path) {
    int16_t status = kNoAnswer;
    extendvelkdb(system::AnsiFromWide(path).c_str(), &status);
    return status;
}

// Fills the slot. What the library makes of the three blocks is unknown.
void ExportBlocks(const std::wstring& path, int16_t number, SectionModel& section) {
    const auto record = std::make_unique<LegacySectionRecord>();
    ToLegacyRecord(section, *record);
    const std::string file = system::AnsiFromWide(path);
    exportvelkmainsec(file.c_str(), number, &record->main);
    exportsectiongeometry(file.c_str(), number, &record->geometry);
    exportvelkcompload(file.c_str(), number, &section.compartments, &record->compLoad);
}

int16_t NameSlot(const std::wstring& path, const SectionModel& section) {
    int16_t status = kNoAnswer;
    addsectvelkdb(system::AnsiFromWide(path).c_str(), AnsiToOemText(section.name).c_str(),
                  section.x_m, &status);
    return status;
}

bool LacksDimensions(const SectionModel& section) {
    return section.breadth_m < kUnsetBelow || section.draught_m < kUnsetBelow;
}

struct Target {
    const std::wstring& path;
    const std::wstring& told;  // in messages
};

// The slot's name is not judged: the next slot's status takes the place of this one.
bool ExportNext(const Target& target, int16_t number, SectionModel& section,
                const BasicShipData& bsd) {
    if (LacksDimensions(section) || section.depth_m < kUnsetBelow) {
        SetSectionDefaults(section, bsd, kUnsetBelow);
    }
    if (AddSlot(target.path) != 0) {
        ReportMessage(kMsgLegacySectionNotAdded, {int32_t{number}, target.told});
        return false;
    }
    ExportBlocks(target.path, number, section);
    NameSlot(target.path, section);
    return true;
}

bool ExportSections(const std::wstring& source, const Target& target, const BasicShipData& bsd) {
    int16_t number = 0;
    for (const ModelEntry& entry : ListModels(source)) {
        if (entry.kind != ModelKind::kSection) continue;
        SectionModel section;
        if (!ReadSectionBlock(source, entry.number, false, section)) continue;
        if (!ExportNext(target, ++number, section, bsd)) return false;
    }
    return true;
}

bool StartDatabase(const std::wstring& source, const Target& target, BasicShipData& bsd) {
    int16_t status = kNoAnswer;
    if (!IsSameFile(source, target.path)) {
        KillFile(target.path);
        createvelkdb(system::AnsiFromWide(target.path).c_str(), &status);
    }
    if (status != 0) {
        ReportMessage(kMsgLegacyNotCreated, {target.told});
        return false;
    }
    LoadBsdFromDatabase(source, bsd);
    status = ExportBsd(target.path, bsd);
    if (status == 0) return true;
    ReportMessage(kMsgLegacyBsdNotWritten, {target.told, int32_t{status}});
    return false;
}

// Whether the slot can be read: a record that a call cannot fill is left as it was.
bool HasSlot(const std::string& file, int16_t number) {
    alignas(LegacyMainSection) std::array<char, sizeof(LegacyMainSection)> block;
    block.fill('\xA5');
    const auto untouched = block;
    importvelkmainsec(file.c_str(), number, reinterpret_cast<LegacyMainSection*>(block.data()));
    return block != untouched;
}

void SetDefault(float& value, float fallback, float threshold) {
    if (value < threshold) value = fallback;
}

// A code below 0 is a code.
void SetDefault(int16_t& code, int16_t fallback, float threshold) {
    if (std::abs(static_cast<float>(code)) < threshold) code = fallback;
}

}  // namespace

void SetSectionDefaults(SectionModel& section, const BasicShipData& bsd, float threshold) {
    const std::wstring name = Trim(section.name);
    if (name.empty() || name == GetMessage(kMsgLegacyDefaultSection)) {
        section.name = GetMessage(kMsgNamelessSection);
    }
    const double half = double{bsd.MainData(1)} / 2;
    SetDefault(section.x_m, static_cast<float>(std::round(half * 100) / 100), threshold);
    SetDefault(section.breadth_m, bsd.MainData(2), threshold);
    SetDefault(section.depth_m, bsd.MainData(3), threshold);
    SetDefault(section.draught_m, bsd.MainData(6), threshold);
    SetDefault(section.shipType, bsd.TypeCodes(1), threshold);
    SetDefault(section.classCode, bsd.TypeCodes(2), threshold);
    SetDefault(section.navigationCode, bsd.TypeCodes(3), threshold);
    SetDefault(section.bottomSlope_deg, 30.0F, threshold);
    SetDefault(section.sideSlope_deg, 45.0F, threshold);
}

bool ExportSection(const LegacySlot& slot, SectionModel& section, const BasicShipData& bsd) {
    ReportStatus(kMsgExportingSection, {ShortenText(section.name, kShortTextLength),
                                        ShortenText(slot.path, kShortTextLength)});
    if (slot.isNew && AddSlot(slot.path) != 0) {
        ReportMessage(kMsgLegacyNotExtended, {slot.path});
        return false;
    }
    if (LacksDimensions(section)) {
        ReportMessage(kMsgDimensionsLacking, {Trim(section.name)});
        SetSectionDefaults(section, bsd, kUnsetBelow);
    }
    ExportBlocks(slot.path, slot.number, section);
    if (slot.isNew && NameSlot(slot.path, section) != 0) {
        ReportMessage(kMsgLegacySectionNotAdded, {int32_t{slot.number}, slot.path});
        return false;
    }
    ShowStatus(L"");
    return true;
}

bool ExportDatabase(const std::wstring& source, const std::wstring& path,
                    const std::wstring& told) {
    if (!FileExists(source) || !IsDatabaseFile(source)) return false;
    const Target target{path, told.empty() ? path : told};
    BasicShipData bsd;
    if (!StartDatabase(source, target, bsd) || !ExportSections(source, target, bsd)) return false;
    ShowStatus(L"");
    return true;
}

bool ImportSection(const std::wstring& path, int16_t number, SectionModel& section) {
    if (!FileExists(path)) {
        ReportMessage(kMsgFileMissing, {path});
        return false;
    }
    const auto record = std::make_unique<LegacySectionRecord>();
    const std::string file = system::AnsiFromWide(path);
    section.compartments.clear();
    importvelkmainsec(file.c_str(), number, &record->main);
    importsectiongeometry(file.c_str(), number, &record->geometry);
    importvelkcompload(file.c_str(), number, &section.compartments, &record->compLoad);
    FromLegacyRecord(*record, section);
    ShowStatus(L"");
    return true;
}

std::vector<ModelEntry> ListLegacySections(const std::wstring& path, int16_t& status) {
    std::array<LegacySectionEntry, kLegacyListedSections> entries{};
    int16_t count = 0;
    status = kNoAnswer;
    getvelksections(system::AnsiFromWide(path).c_str(), &status, &count, entries.data());
    std::vector<ModelEntry> list;
    if (status != 0) return list;
    const int listed = std::clamp<int>(count, 0, kLegacyListedSections);
    for (int i = 0; i < listed; ++i) {
        const LegacySectionEntry& entry = entries[static_cast<size_t>(i)];
        list.push_back({.number = i + 1, .name = OemToAnsiText({entry.name, sizeof(entry.name)})});
    }
    return list;
}

int16_t CountLegacySections(const std::wstring& path, int16_t& status) {
    auto count = static_cast<int16_t>(ListLegacySections(path, status).size());
    if (count < kLegacyListedSections) return count;
    const std::string file = system::AnsiFromWide(path);
    while (count < INT16_MAX && HasSlot(file, static_cast<int16_t>(count + 1))) ++count;
    return count;
}

int16_t LoadBsdFromLegacy(const std::wstring& path, BasicShipData& bsd) {
    BsdBuffer buffer;
    int16_t status = kNoAnswer;
    importvelknavi(system::AnsiFromWide(path).c_str(), &buffer.Record(), &status);
    if (status != 0) return status;
    for (auto& title : buffer.Record().Titles) ConvertText(title, system::AnsiFromOem);
    FromLegacyForm(buffer.Record(), bsd);
    return status;
}

bool RequireLegacyRead(const std::wstring& path, int16_t status) {
    if (status != 0) ReportMessage(kMsgLegacyNotRead, {path, int32_t{status}});
    return status == 0;
}

}  // namespace corvane
