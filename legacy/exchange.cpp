#include "legacy/exchange.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <utility>

#include "bsd/bsd_file.h"
#include "bsd/legacy_form.h"
#include "database/scanning.h"
#include "database/section_block.h"
#include "files/file_system.h"
#include "files/progress.h"
#include "legacy/legacy_tables.h"
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

// Notes what of a text the library's code page does not have.
template <int length>
void NoteText(const FixedText<length>& text, const std::string& bytes, Losses& losses) {
    const std::wstring kept = Trim(system::WideFromAnsi(bytes));
    if (kept != text.Trimmed()) NoteLoss(losses, kMsgNameChanged, {text.Trimmed(), kept});
}

int16_t ExportBsd(const std::wstring& path, const BasicShipData& bsd, LegacyBsd& record,
                  Losses& losses) {
    ToLegacyForm(bsd, record);
    for (int i = 1; i <= 5; ++i) {
        char(&title)[30] = record.Titles[i - 1];
        ConvertText(title, system::OemFromAnsi);
        NoteText(bsd.Titles(i), system::AnsiFromOem({title, sizeof(title)}), losses);
    }
    NoteText(bsd.Remark, {record.Remark, sizeof(record.Remark)}, losses);
    int16_t status = kNoAnswer;
    exportvelkbsd(system::AnsiFromWide(path).c_str(), &record, &status);
    return status;
}

int16_t AddSlot(const std::wstring& path) {
    int16_t status = kNoAnswer;
    extendvelkdb(system::AnsiFromWide(path).c_str(), &status);
    return status;
}

// Notes those of the values that are different, each with its name, in one message. `names` is a
// message with their names, in this order.
struct Value {
    bool isNoted;
    MessageArgument value;
};
void NoteValues(int32_t message, int32_t names, std::initializer_list<Value> values,
                Losses& losses) {
    std::wstring text;
    size_t index = 0;
    for (const Value& value : values) {
        const std::wstring name = GetMessagePart(names, index++);
        if (value.isNoted) text += (text.empty() ? L"" : L", ") + name + L' ' + value.value.text;
    }
    if (!text.empty()) NoteLoss(losses, message, {text});
}

// What the library gets for the compartments of a section as another program of the suite holds
// them. Nothing is there, and there is room for what a library may write.
struct ForeignCompartments {
    std::array<unsigned char, 65536> bytes{};
};

// Fills the slot. What the library makes of the three blocks is unknown.
void ExportBlocks(const std::wstring& path, int16_t number, LegacySectionRecord& record) {
    const auto foreign = std::make_unique<ForeignCompartments>();
    const std::string file = system::AnsiFromWide(path);
    exportvelkmainsec(file.c_str(), number, &record.main);
    exportsectiongeometry(file.c_str(), number, &record.geometry);
    exportvelkcompload(file.c_str(), number, foreign.get(), &record.compLoad);
}

void ImportBlocks(const std::wstring& path, int16_t number, LegacySectionRecord& record) {
    const auto foreign = std::make_unique<ForeignCompartments>();
    const std::string file = system::AnsiFromWide(path);
    importvelkmainsec(file.c_str(), number, &record.main);
    importsectiongeometry(file.c_str(), number, &record.geometry);
    importvelkcompload(file.c_str(), number, foreign.get(), &record.compLoad);
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

// Gives the section what it lacks, and notes what that was.
void SetAndNoteDefaults(SectionModel& section, const BasicShipData& bsd, Losses& losses) {
    const SectionModel before = section;
    SetSectionDefaults(section, bsd, kUnsetBelow);
    NoteValues(kMsgDefaulted, kMsgSectionFields,
               {{section.name != before.name, section.name},
                {section.x_m != before.x_m, section.x_m},
                {section.breadth_m != before.breadth_m, section.breadth_m},
                {section.depth_m != before.depth_m, section.depth_m},
                {section.draught_m != before.draught_m, section.draught_m},
                {section.shipType != before.shipType, int32_t{section.shipType}},
                {section.classCode != before.classCode, int32_t{section.classCode}},
                {section.navigationCode != before.navigationCode, int32_t{section.navigationCode}}},
               losses);
}

// What the legacy form has no room for, where an import would not give it back.
void NoteNotHeld(const SectionModel& section, Losses& losses) {
    const auto isLost = [](auto value, auto imported) { return value != 0 && value != imported; };
    NoteValues(
        kMsgNotInLegacyForm, kMsgUnheldFields,
        {{isLost(section.bottomSlope_deg, kImportedBottomSlope_deg), section.bottomSlope_deg},
         {isLost(section.sideSlope_deg, kImportedSideSlope_deg), section.sideSlope_deg},
         {isLost(section.stressRule, kImportedStressRule), section.stressRule},
         {isLost(section.bucklingRule, kImportedBucklingRule), section.bucklingRule}},
        losses);
}

// The section in the legacy form, and what is lost by that.
void ConvertSection(SectionModel& section, LegacySectionRecord& record, Losses& losses) {
    NoteNotHeld(section, losses);
    const Losses lost = ToLegacyRecord(section, record);
    losses.insert(losses.end(), lost.begin(), lost.end());
}

struct Target {
    const std::wstring& path;
    const std::wstring& shown;  // in messages
};

// ---- Reading back ------------------------------------------------------------------------------

using Record = std::unique_ptr<LegacySectionRecord>;

// The record without what no import reads: bytes that are not used, and texts behind their end.
Record WhatIsRead(const LegacySectionRecord& record) {
    const QuietStatus quiet;
    SectionModel section;
    FromLegacyRecord(record, section);
    auto read = std::make_unique<LegacySectionRecord>();
    ToLegacyRecord(section, *read);
    return read;
}

bool AreSame(const LegacySectionRecord& a, const LegacySectionRecord& b) {
    return std::memcmp(&a, &b, sizeof(a)) == 0;
}

// Whether the library gives back what it got.
bool IsInSlot(const std::wstring& path, int16_t number, const LegacySectionRecord& written) {
    const auto read = std::make_unique<LegacySectionRecord>();
    ImportBlocks(path, number, *read);
    return AreSame(*read, written) || AreSame(*WhatIsRead(*read), *WhatIsRead(written));
}

bool RequireInSlot(const Target& target, int16_t number, const LegacySectionRecord& written) {
    if (IsInSlot(target.path, number, written)) return true;
    const std::wstring name = TextOf(written.main.name, sizeof(written.main.name));
    ReportMessage(kMsgReadBackDiffers, {name, target.shown});
    return false;
}

// Notes where the list of the library has another name for a section than it was given.
void NoteListedName(const std::vector<ModelEntry>& list, int16_t number, ExchangedModel& model) {
    const auto index = static_cast<size_t>(number - 1);
    const std::wstring name = Trim(OemToAnsiText(AnsiToOemText(model.name)));
    if (index >= list.size() || list[index].name == name) return;
    // That it was cut has been noted.
    if (name.substr(0, sizeof(LegacySectionEntry::name)) == list[index].name) return;
    NoteLoss(model.what, kMsgListedAs, {list[index].name});
    model.outcome = Outcome::kChanged;
}

// The list at the end of an export. A library may keep what it gets until the file is read: the
// status is 0 when all of it is in the file now. False, and reported, when not; also when the list
// has less than `count` sections.
bool ListWritten(const Target& target, int16_t count, std::vector<ModelEntry>& list,
                 int16_t& status) {
    list = ListLegacySections(target.path, status);
    return status == 0 &&
           list.size() >= std::min<size_t>(static_cast<size_t>(count), kLegacyListedSections);
}

// ---- A whole database --------------------------------------------------------------------------

// All sections of a database on their way to a new legacy database.
struct DatabaseExport {
    const Target& target;
    ExchangeReport& report;
    BasicShipData bsd = {};
    BsdBuffer ship = {};               // as it was written
    std::vector<Record> records = {};  // of the slots, as they were written
    std::vector<size_t> models = {};   // of the slots: which one of the report
};

// The slot's name is not judged: the next slot's status replaces this one.
bool ExportNext(DatabaseExport& work, SectionModel& section) {
    const Target& target = work.target;
    Losses losses;
    if (LacksDimensions(section) || section.depth_m < kUnsetBelow) {
        SetAndNoteDefaults(section, work.bsd, losses);
    }
    const auto number = static_cast<int16_t>(work.records.size() + 1);
    const int16_t status = AddSlot(target.path);
    if (status != 0) {
        ReportFailure(kMsgLegacySectionNotAdded, {int32_t{number}, target.shown}, status);
        return false;
    }
    Record& record = work.records.emplace_back(std::make_unique<LegacySectionRecord>());
    ConvertSection(section, *record, losses);
    ExportBlocks(target.path, number, *record);
    NameSlot(target.path, section);
    work.models.push_back(work.report.models.size());
    AddSection(work.report, section.name, std::move(losses));
    return true;
}

// A number that does not lead to one block alone is reported: it could lead to another section.
bool ReadSectionOf(const ModelEntry& entry, const std::wstring& source, SectionModel& section) {
    if (entry.hasOwnNumber) return ReadSectionBlock(source, PlaceOf(entry), false, section);
    ReportNumberNotOwn(entry.number, source);
    return false;
}

bool ExportModel(const ModelEntry& entry, const std::wstring& source, DatabaseExport& work) {
    SectionModel section;
    if (entry.kind != ModelKind::kSection) {
        AddLeftOut(work.report, entry.kind, entry.name, kMsgLegacyHasSectionsOnly);
        return true;
    }
    if (ReadSectionOf(entry, source, section)) return ExportNext(work, section);
    AddLeftOut(work.report, entry.kind, entry.name, kMsgCouldNotBeRead);
    return true;
}

bool ExportModels(const std::wstring& source, DatabaseExport& work) {
    std::vector<ModelEntry> models;
    if (!ListModels(source, models)) return false;
    Progress progress(static_cast<int64_t>(models.size()));
    for (const ModelEntry& entry : models) {
        if (!Advance(progress, 1)) {
            ReportNote(kMsgCancelled, {work.target.shown});
            return false;
        }
        if (!ExportModel(entry, source, work)) return false;
    }
    return true;
}

// The new file with the ship's data; they are in `work.bsd`.
bool CreateDatabase(DatabaseExport& work) {
    const Target& target = work.target;
    KillFile(target.path);
    int16_t status = kNoAnswer;
    createvelkdb(system::AnsiFromWide(target.path).c_str(), &status);
    if (status != 0) {
        ReportFailure(kMsgLegacyNotCreated, {target.shown}, status);
        return false;
    }
    work.report.hasShip = true;
    status = ExportBsd(target.path, work.bsd, work.ship.Record(), work.report.ship);
    if (status == 0) return true;
    ReportFailure(kMsgLegacyBsdNotWritten, {target.shown, int32_t{status}}, status);
    return false;
}

bool StartDatabase(const std::wstring& source, DatabaseExport& work) {
    if (IsSameFile(source, work.target.path)) {
        ReportMessage(kMsgIsOpenDatabase, {work.target.shown});
        return false;
    }
    LoadBsdFromDatabase(source, work.bsd);
    return CreateDatabase(work);
}

bool RequireShip(DatabaseExport& work) {
    BsdBuffer read;
    int16_t status = kNoAnswer;
    importvelknavi(system::AnsiFromWide(work.target.path).c_str(), &read.Record(), &status);
    BasicShipData written, again;
    FromLegacyForm(work.ship.Record(), written);
    FromLegacyForm(read.Record(), again);
    if (status == 0 && (written == again || read.bytes == work.ship.bytes)) return true;
    ReportMessage(kMsgReadBackDiffers, {GetMessage(kMsgBasicShipData), work.target.shown});
    return false;
}

// Reads all that was written again.
bool RequireAllWritten(DatabaseExport& work) {
    const Target& target = work.target;
    std::vector<ModelEntry> list;
    int16_t status = kNoAnswer;
    const auto count = static_cast<int16_t>(work.records.size());
    const bool isListed = ListWritten(target, count, list, status);
    if (status != 0) {
        ReportFailure(kMsgLegacyNotCreated, {target.shown}, status);
        return false;
    }
    if (!isListed) {
        const auto& missing = work.report.models[work.models[list.size()]];
        ReportMessage(kMsgReadBackDiffers, {missing.name, target.shown});
        return false;
    }
    if (!RequireShip(work)) return false;
    Progress progress(count);
    for (int16_t number = 1; number <= count; ++number) {
        const auto i = static_cast<size_t>(number - 1);
        if (!Advance(progress, 1)) {
            ReportNote(kMsgCancelled, {target.shown});
            return false;
        }
        if (!RequireInSlot(target, number, *work.records[i])) return false;
        NoteListedName(list, number, work.report.models[work.models[i]]);
    }
    return true;
}

// ---- Slots -------------------------------------------------------------------------------------

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

bool ExportSection(const LegacySlot& slot, SectionModel& section, const BasicShipData& bsd,
                   ExchangeReport& report) {
    const Target target{slot.path, slot.shown.empty() ? slot.path : slot.shown};
    ReportStatus(kMsgExportingSection, {ShortenText(section.name, kShortTextLength),
                                        ShortenText(target.shown, kShortTextLength)});
    int16_t status = slot.isNew ? AddSlot(slot.path) : int16_t{0};
    if (status != 0) {
        ReportFailure(kMsgLegacyNotExtended, {target.shown}, status);
        return false;
    }
    Losses losses;
    if (LacksDimensions(section)) {
        ReportMessage(kMsgDimensionsLacking, {Trim(section.name)});
        SetAndNoteDefaults(section, bsd, losses);
    }
    const auto record = std::make_unique<LegacySectionRecord>();
    ConvertSection(section, *record, losses);
    ExportBlocks(slot.path, slot.number, *record);
    if (slot.isNew) status = NameSlot(slot.path, section);
    std::vector<ModelEntry> list;
    int16_t written = kNoAnswer;
    const bool isListed = ListWritten(target, slot.number, list, written);
    if (status == 0) status = written;
    if (status != 0) {
        ReportFailure(kMsgLegacySectionNotAdded, {int32_t{slot.number}, target.shown}, status);
        return false;
    }
    if (!isListed) ReportMessage(kMsgReadBackDiffers, {Trim(section.name), target.shown});
    if (!isListed || !RequireInSlot(target, slot.number, *record)) return false;
    AddSection(report, section.name, std::move(losses));
    if (slot.isNew) NoteListedName(list, slot.number, report.models.back());
    ShowStatus(L"");
    return true;
}

bool CreateLegacyDatabase(const std::wstring& path, const std::wstring& shown,
                          const BasicShipData& bsd) {
    ExchangeReport report;
    const Target target{path, shown};
    DatabaseExport work{.target = target, .report = report, .bsd = bsd};
    return CreateDatabase(work) && RequireAllWritten(work);
}

bool ExportDatabase(const DatabasePaths& paths, ExchangeReport& report) {
    const std::wstring& source = paths.source;
    if (!FileExists(source) || !IsDatabaseFile(source)) {
        ReportMessage(kMsgNoDatabase, {source});
        return false;
    }
    const Target target{paths.target, paths.shown.empty() ? paths.target : paths.shown};
    DatabaseExport work{.target = target, .report = report};
    if (!StartDatabase(source, work)) return false;
    if (!ExportModels(source, work)) {
        int16_t status = kNoAnswer;
        ListLegacySections(target.path, status);  // the library keeps nothing back
        return false;
    }
    if (!RequireAllWritten(work)) return false;
    ShowStatus(L"");
    return true;
}

bool ImportSection(const std::wstring& path, int16_t number, SectionModel& section,
                   Losses& losses) {
    if (!FileExists(path)) {
        ReportMessage(kMsgFileMissing, {path});
        return false;
    }
    const auto record = std::make_unique<LegacySectionRecord>();
    ImportBlocks(path, number, *record);
    const Losses lost = FromLegacyRecord(*record, section);
    losses.insert(losses.end(), lost.begin(), lost.end());
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
    if (HasSlot(file, missing)) return kSlotsUnknown;
    while (missing - there > 1) {
        const int middle = (there + missing) / 2;
        (HasSlot(file, middle) ? there : missing) = middle;
    }
    return static_cast<int16_t>(there);
}

LegacySections ListAllLegacySections(const std::wstring& path, int16_t& status) {
    LegacySections all{ListLegacySections(path, status), false};
    const int16_t count = CountLegacySections(path, all.sections.size());
    all.hasMore = count == kSlotsUnknown;
    const std::string file = system::AnsiFromWide(path);
    for (auto number = static_cast<int32_t>(all.sections.size()) + 1;
         !all.hasMore && number <= count; ++number) {
        LegacyMainSection block{};
        importvelkmainsec(file.c_str(), static_cast<int16_t>(number), &block);
        ModelEntry& model = all.sections.emplace_back();
        model.number = number;
        model.name = TextOf(block.name, sizeof(block.name));
    }
    return all;
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
