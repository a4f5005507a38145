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
#include "files/progress.h"
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

// The library's status in words is below the message.
void ReportFailure(int32_t message, MessageArguments arguments, int16_t status) {
    ReportMessage(message, arguments, LegacyStatusText(status));
}

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

// What the library gets for the compartments of a section as another program of the suite holds
// them. Nothing is there, and there is room for what a library may write.
struct ForeignCompartments {
    std::array<unsigned char, 65536> bytes{};
};

// Fills the slot, and adds what did not fit. What the library makes of the three blocks is unknown.
void ExportBlocks(const std::wstring& path, int16_t number, SectionModel& section,
                  ExchangeLosses& losses) {
    const auto record = std::make_unique<LegacySectionRecord>();
    const auto foreign = std::make_unique<ForeignCompartments>();
    AddLosses(losses, section.name, ToLegacyRecord(section, *record));
    const std::string file = system::AnsiFromWide(path);
    exportvelkmainsec(file.c_str(), number, &record->main);
    exportsectiongeometry(file.c_str(), number, &record->geometry);
    exportvelkcompload(file.c_str(), number, foreign.get(), &record->compLoad);
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
    const std::wstring& shown;  // in messages
};

// All sections of a database on their way to a new legacy database.
struct DatabaseExport {
    const Target& target;
    BasicShipData bsd;
    ExchangeLosses losses;
};

// A library may keep what it gets until the file is read: 0 when all of it is in the file now.
int16_t StatusOfAllWritten(const std::wstring& path) {
    int16_t status = kNoAnswer;
    ListLegacySections(path, status);
    return status;
}

// The slot's name is not judged: the next slot's status replaces this one.
bool ExportNext(DatabaseExport& work, int16_t number, SectionModel& section) {
    const Target& target = work.target;
    if (LacksDimensions(section) || section.depth_m < kUnsetBelow) {
        SetSectionDefaults(section, work.bsd, kUnsetBelow);
    }
    const int16_t status = AddSlot(target.path);
    if (status != 0) {
        ReportFailure(kMsgLegacySectionNotAdded, {int32_t{number}, target.shown}, status);
        return false;
    }
    ExportBlocks(target.path, number, section, work.losses);
    NameSlot(target.path, section);
    return true;
}

// A number that does not lead to one block alone is reported: it could lead to another section.
bool ReadSectionOf(const ModelEntry& entry, const std::wstring& source, SectionModel& section) {
    if (entry.hasOwnNumber) return ReadSectionBlock(source, PlaceOf(entry), false, section);
    ReportNumberNotOwn(entry.number, source);
    return false;
}

bool ExportSections(const std::wstring& source, DatabaseExport& work) {
    int16_t number = 0;
    std::vector<ModelEntry> models;
    if (!ListModels(source, models)) return false;
    Progress progress(static_cast<int64_t>(models.size()));
    for (const ModelEntry& entry : models) {
        if (!Advance(progress, 1)) {
            ReportNote(kMsgCancelled, {work.target.shown});
            return false;
        }
        if (entry.kind != ModelKind::kSection) continue;
        SectionModel section;
        if (!ReadSectionOf(entry, source, section)) {
            NoteLoss(work.losses.whole, kMsgModelLeftOut, {entry.name});
            continue;
        }
        if (!ExportNext(work, ++number, section)) return false;
    }
    return true;
}

bool StartDatabase(const std::wstring& source, const Target& target, BasicShipData& bsd) {
    if (IsSameFile(source, target.path)) {
        ReportMessage(kMsgIsOpenDatabase, {target.shown});
        return false;
    }
    KillFile(target.path);
    int16_t status = kNoAnswer;
    createvelkdb(system::AnsiFromWide(target.path).c_str(), &status);
    if (status != 0) {
        ReportFailure(kMsgLegacyNotCreated, {target.shown}, status);
        return false;
    }
    LoadBsdFromDatabase(source, bsd);
    status = ExportBsd(target.path, bsd);
    if (status == 0) return true;
    ReportFailure(kMsgLegacyBsdNotWritten, {target.shown, int32_t{status}}, status);
    return false;
}

// Whether the slot can be read: a record that a call cannot fill is left as it was.
bool HasSlot(const std::string& file, int number) {
    alignas(LegacyMainSection) std::array<char, sizeof(LegacyMainSection)> block;
    block.fill('\xA5');
    const auto untouched = block;
    importvelkmainsec(file.c_str(), static_cast<int16_t>(number),
                      reinterpret_cast<LegacyMainSection*>(block.data()));
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
    int16_t status = slot.isNew ? AddSlot(slot.path) : int16_t{0};
    if (status != 0) {
        ReportFailure(kMsgLegacyNotExtended, {slot.path}, status);
        return false;
    }
    if (LacksDimensions(section)) {
        ReportMessage(kMsgDimensionsLacking, {Trim(section.name)});
        SetSectionDefaults(section, bsd, kUnsetBelow);
    }
    ExchangeLosses losses;
    ExportBlocks(slot.path, slot.number, section, losses);
    if (slot.isNew) status = NameSlot(slot.path, section);
    const int16_t written = StatusOfAllWritten(slot.path);
    if (status == 0) status = written;
    if (status != 0) {
        ReportFailure(kMsgLegacySectionNotAdded, {int32_t{slot.number}, slot.path}, status);
        return false;
    }
    ShowStatus(L"");
    ReportLosses(slot.path, losses);
    return true;
}

bool ExportDatabase(const std::wstring& source, const std::wstring& path,
                    const std::wstring& shown) {
    if (!FileExists(source) || !IsDatabaseFile(source)) {
        ReportMessage(kMsgNoDatabase, {source});
        return false;
    }
    const Target target{path, shown.empty() ? path : shown};
    DatabaseExport work{target, {}, {}};
    if (!StartDatabase(source, target, work.bsd)) return false;
    const bool isExported = ExportSections(source, work);
    const int16_t status = StatusOfAllWritten(path);
    if (!isExported) return false;
    if (status != 0) {
        ReportFailure(kMsgLegacyNotCreated, {target.shown}, status);
        return false;
    }
    ShowStatus(L"");
    ReportLosses(target.shown, work.losses);
    return true;
}

bool ImportSection(const std::wstring& path, int16_t number, SectionModel& section,
                   ExchangeLosses& losses) {
    if (!FileExists(path)) {
        ReportMessage(kMsgFileMissing, {path});
        return false;
    }
    const auto record = std::make_unique<LegacySectionRecord>();
    const std::string file = system::AnsiFromWide(path);
    const auto foreign = std::make_unique<ForeignCompartments>();
    importvelkmainsec(file.c_str(), number, &record->main);
    importsectiongeometry(file.c_str(), number, &record->geometry);
    importvelkcompload(file.c_str(), number, foreign.get(), &record->compLoad);
    Losses lost = FromLegacyRecord(*record, section);
    AddLosses(losses, section.name, std::move(lost));
    ShowStatus(L"");
    return true;
}

bool RequireAllRead(const std::wstring& path) {
    int16_t status = kNoAnswer;
    ListLegacySections(path, status);
    return RequireLegacyRead(path, status);
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
        ModelEntry& model = list.emplace_back();
        model.number = i + 1;
        model.name = OemToAnsiText({entry.name, sizeof(entry.name)});
    }
    return list;
}

int16_t CountLegacySections(const std::wstring& path, size_t listed) {
    if (listed < kLegacyListedSections) return static_cast<int16_t>(listed);
    const std::string file = system::AnsiFromWide(path);
    // Slots follow one another without a gap: the last one is between one that is there and one
    // that is not.
    int there = kLegacyListedSections;
    int missing = INT16_MAX;
    if (HasSlot(file, missing)) return INT16_MAX;
    while (missing - there > 1) {
        const int middle = (there + missing) / 2;
        (HasSlot(file, middle) ? there : missing) = middle;
    }
    return static_cast<int16_t>(there);
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

std::wstring LegacyStatusText(int16_t status) {
    constexpr std::array kOwnStatuses{kMsgLegacyFileMissing, kMsgLegacyForeign,
                                      kMsgLegacyDamaged,     kMsgLegacyNotWritten,
                                      kMsgLegacyFull,        kMsgLegacyNoSection};
    static_assert(kOwnStatuses.size() == kLegacyNoSection);
    if (status == kNoAnswer) return BoxText(kMsgLegacyNoAnswer);
    const auto index = static_cast<size_t>(status - 1);
    if (index >= kOwnStatuses.size()) return BoxText(kMsgLegacyOtherStatus, {int32_t{status}});
    return BoxText(kOwnStatuses[index]);
}

bool RequireLegacyRead(const std::wstring& path, int16_t status) {
    if (status != 0) ReportMessage(kMsgLegacyNotRead, {path, LegacyStatusText(status)});
    return status == 0;
}

}  // namespace corvane
