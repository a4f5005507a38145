#include "tests/legacy/legacy_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <type_traits>
#include <utility>

#include "bsd/legacy_form.h"
#include "database/section_lines.h"
#include "legacy/exchange.h"
#include "platform/system.h"
#include "report/reporters.h"
#include "tests/companions/section_builder.h"
#include "tests/database/section_sample.h"
#include "tests/support/recorded_reports.h"

namespace corvane::test {
namespace {

// ---- Random sections ---------------------------------------------------------------------------

struct Draft {
    Chance chance;
    SectionModel section = {};
    int fatigueTables = 0;
    int brackets = 0;
    int curves = 0;

    bool OneIn(int count) { return chance.OneIn(count); }
    int16_t Code() { return Draw(chance, int16_t{}); }
    float Length() { return chance.Between(0.1, 20); }
    std::wstring Name(int most) {
        constexpr std::wstring_view kLetters = L"ABCxyz 0123-_.,;()\u00E9\u00DF\u00F8'";
        std::wstring name(1, static_cast<wchar_t>(L'A' + chance.Below(26)));
        for (int i = chance.Below(most); i > 1; --i) {
            name += kLetters[static_cast<size_t>(chance.Below(static_cast<int>(kLetters.size())))];
        }
        while (name.back() == L' ') name.pop_back();
        return name;
    }
};

Scantlings DraftProfile(Draft& draft) {
    const auto i = static_cast<float>(draft.chance.Below(10));
    return {draft.chance.Below(4), 200 + 20 * i, 8 + i, i < 5 ? 0 : 90.0F, i < 5 ? 0 : 15.0F};
}

NodeReference DraftReference(Draft& draft) {
    const int panels = static_cast<int>(draft.section.panels.size());
    // Now and then one that does not exist.
    return {static_cast<int16_t>(1 + draft.chance.Below(panels + (draft.OneIn(20) ? 2 : 0))),
            static_cast<int16_t>(1 + draft.chance.Below(draft.OneIn(20) ? 9 : 2))};
}

Node DraftNode(Draft& draft, float y) {
    const NodeReference base = DraftReference(draft);
    switch (draft.chance.Below(8)) {
        case 0:
            return CoincidentNode(base);
        case 1:
            return OffsetNode(base, draft.Length(), draft.Length());
        case 2:
            return NodeAtY(base.strake, y, draft.Length());
        case 3:
            if (draft.OneIn(3)) {
                return LineNode(base.strake, {y, 0, y + 1, draft.Length()}, 0.5F);
            }
            return GivenNode(y, draft.Length());
        case 4:
            if (++draft.curves <= kLegacyCurves) return RadiusNode(y, draft.Length(), 40);
            return GivenNode(y, 2);
        default:
            return GivenNode(y, draft.Length());
    }
}

// As many brackets and fatigue tables as the record has room for.
Span DraftSpan(Draft& draft) {
    Span span = RandomSpan(draft.chance);
    span.scantlings = DraftProfile(draft);
    span.bracket.scantlings = DraftProfile(draft);
    if (!span.bracket.present || ++draft.brackets > kLegacySpanBrackets) span.bracket = {};
    if (!span.fatigue.present || ++draft.fatigueTables > kLegacyFatigueTables) span.fatigue = {};
    return span;
}

void DraftStiffeners(Draft& draft, Panel& panel) {
    for (int i = draft.chance.Below(4); i > 0; --i) {
        const NodeReference base = draft.OneIn(2) ? NodeReference{} : DraftReference(draft);
        const float offset = draft.chance.Between(-2, 25);  // some are beyond the ends
        Stiffener stiffener = StiffenerAt(offset, base, draft.OneIn(2) ? 1 : -1);
        stiffener.count = static_cast<int16_t>(draft.chance.Below(20));
        stiffener.spacing = draft.Length();
        panel.stiffeners.push_back(stiffener);
        StiffenerDetail& detail = panel.stiffenerDetails.emplace_back();
        detail.connection = draft.Code();
        detail.mirrored = draft.OneIn(2) ? -1 : 0;
        for (int k = draft.chance.Below(3); k > 0; --k) detail.spans.push_back(DraftSpan(draft));
    }
}

PrimaryBracket DraftBracket(Draft& draft) {
    PrimaryBracket bracket = RandomBracket(draft.chance);
    bracket.from = DraftReference(draft);
    bracket.to = DraftReference(draft);
    for (Scantlings& profile : bracket.scantlings.elements) profile = DraftProfile(draft);
    return bracket;
}

Opening DraftOpening(Draft& draft) {
    Opening opening = RandomOpening(draft.chance);
    opening.at = DraftReference(draft);
    return opening;
}

Pillar DraftPillar(Draft& draft) {
    Pillar pillar = RandomPillar(draft.chance);
    pillar.to = DraftReference(draft);
    pillar.profile = draft.chance.Below(4);
    return pillar;
}

void DraftPanel(Draft& draft, float y) {
    Panel& panel = draft.section.panels.emplace_back();
    panel.name = draft.Name(26);
    panel.spacing_m = draft.Length();
    panel.span_m = draft.Length();
    panel.thickness_mm = draft.Length();
    panel.kind = draft.Code();
    panel.material = draft.Code();
    for (int i = 2 + draft.chance.Below(4); i > 0; --i, y += 2) {
        panel.nodes.push_back(DraftNode(draft, y));
        panel.nodes.back().number = draft.Code();
    }
    for (int i = draft.chance.Below(4); i > 0; --i) {
        panel.plates.push_back(RandomPlate(draft.chance));
    }
    DraftStiffeners(draft, panel);
    if (draft.OneIn(4)) panel.brackets.push_back(DraftBracket(draft));
    if (draft.OneIn(4)) panel.openings.push_back(DraftOpening(draft));
    if (draft.OneIn(4)) panel.pillars.push_back(DraftPillar(draft));
}

void DraftCompartment(Draft& draft) {
    Compartment& compartment =
        draft.section.compartments.emplace_back(RandomCompartment(draft.chance));
    compartment.levels.resize(std::min<size_t>(compartment.levels.size(), 7));
    compartment.name = draft.Name(34);
    for (int i = draft.chance.Below(9); i > 0; --i) {
        const auto strake =
            static_cast<size_t>(draft.chance.Below(static_cast<int>(draft.section.panels.size())));
        const int nodes = static_cast<int>(draft.section.panels[strake].nodes.size());
        compartment.outline.push_back({static_cast<int16_t>(strake + 1),
                                       static_cast<int16_t>(1 + draft.chance.Below(nodes))});
    }
}

void DraftHead(Draft& draft) {
    SectionModel& section = draft.section;
    section.name = draft.Name(40);
    for (float* value :
         {&section.x_m, &section.breadth_m, &section.depth_m, &section.draught_m,
          &section.frameSpacing_m, &section.webSpacing_m, &section.ballastDraught_m,
          &section.cargoHeight_m, &section.holdLength_m, &section.holdAft_m, &section.neutralAxis_m,
          &section.area_m2, &section.inertiaY_m4, &section.inertiaZ_m4}) {
        *value = draft.Length();
    }
    for (int16_t* code : {&section.shipType, &section.classCode, &section.navigationCode,
                          &section.materialGroup, &section.corrosionRule}) {
        *code = draft.Code();
    }
    section.symmetryMode = draft.chance.Below(3);
    for (int16_t& code : section.resultCodes.elements) code = draft.Code();
    section.resultsValid = draft.OneIn(2) ? -1 : 0;
    for (int k = 1; k <= 3; ++k) {
        section.stillWaterMoment_kNm(k) = draft.OneIn(5) ? 0 : draft.Length();
        section.waveMoment_kNm(k) = draft.Length();
        section.shearForce_kN(k) = draft.Length();
    }
    if (draft.OneIn(3)) {
        section.moduliAbsent = -1;
    } else {
        section.deckModulus_m3 = draft.Length();
        section.bottomModulus_m3 = draft.Length();
    }
}

// ---- Exact texts -------------------------------------------------------------------------------

// A third kind of row, which lists whatever fields a line has.
struct ListRow {
    std::string text;
};
template <class Number>
void Add(ListRow& row, Number value) {
    row.text.append(reinterpret_cast<const char*>(&value), sizeof(value));
}
void Value(ListRow& row, float& value) {
    Add(row, value);
}
void Value(ListRow& row, int16_t& value) {
    Add(row, value);
}
void Value(ListRow& row, int32_t& value) {
    Add(row, value);
}
void Value(ListRow& row, General field) {
    Add(row, field.value);
}
void Value(ListRow& row, Magnitude field) {
    Add(row, field.value);
}
void Value(ListRow& row, Flag field) {
    Add(row, field.value);
}
void Value(ListRow& row, PaddedName field) {
    row.text += Narrow(field.text);
}
void EndLine(ListRow& row) {
    row.text += '\n';
}
void ClosingTab(ListRow&) {}
void Abut(ListRow&) {}
void CommentRule(ListRow&) {}
void EmptyLine(ListRow&) {}
void TextLine(ListRow& row, const std::wstring& text) {
    row.text += Narrow(text) + '\n';
}
void TextLine(ListRow& row, const std::string& text) {
    row.text += text + '\n';
}
void HeadTextLine(ListRow& row, const std::string& text) {
    TextLine(row, text);
}
void GoOnInNextLine(ListRow& row) {
    EndLine(row);
}
bool HasFields(ListRow&, bool present, int) {
    return present;
}
void OutlineLine(ListRow& row, Compartment& compartment) {
    for (const NodeReference node : compartment.outline) Add(row, node);
    EndLine(row);
}
void FillingLevelLine(ListRow& row, Compartment& compartment) {
    for (const FillingLevel& level : compartment.levels) Add(row, level);
    EndLine(row);
}

void ListPanel(ListRow& row, Panel& panel) {
    PanelCounts counts = CountsOf(panel);
    PanelLine(row, panel, 0, counts);
    for (Node& node : panel.nodes) {
        int16_t absolute = AbsoluteCode(node, {}, 0);
        NodeLine(row, {node, absolute});
    }
    for (Plate& plate : panel.plates) ItemLines(row, plate);
    for (size_t i = 0; i < panel.stiffeners.size(); ++i) {
        auto spans = static_cast<int32_t>(panel.stiffenerDetails[i].spans.size());
        ItemLines(row, StiffenerRow{panel.stiffeners[i], panel.stiffenerDetails[i], spans});
        for (Span& span : panel.stiffenerDetails[i].spans) {
            ItemLines(row, span);
            if (span.fatigue.present) ItemLines(row, span.fatigue);
        }
    }
    for (PrimaryBracket& bracket : panel.brackets) ItemLines(row, bracket);
    for (Opening& opening : panel.openings) ItemLines(row, opening);
    for (Pillar& pillar : panel.pillars) ItemLines(row, pillar);
}

}  // namespace

SectionModel GeneratedSection(uint32_t seed) {
    Draft draft{Chance(seed)};
    draft.chance.shortIntegers = true;  // as the legacy form has them
    DraftHead(draft);
    for (int i = 1 + draft.chance.Below(5); i > 0; --i) {
        DraftPanel(draft, draft.chance.Between(-5, 5));
    }
    for (int i = draft.chance.Below(5); i > 0; --i) DraftCompartment(draft);
    return std::move(draft.section);
}

Panel PanelOfNodes(int given, int offset, int16_t number) {
    Panel panel;
    const auto z = static_cast<float>(number);
    for (int i = 0; i < given; ++i) panel.nodes.push_back(GivenNode(static_cast<float>(i), z));
    for (int i = 0; i < offset; ++i) {
        panel.nodes.push_back(OffsetNode({number, 1}, static_cast<float>(given + i), 0));
    }
    return panel;
}

std::string ExactText(SectionModel& section) {
    ListRow row;
    TextLine(row, section.name);
    HeadLines(row, section);
    for (Panel& panel : section.panels) ListPanel(row, panel);
    for (Compartment& compartment : section.compartments) {
        TextLine(row, compartment.name);
        CompartmentLines(row, compartment);
    }
    return row.text;
}

void SetImportedHead(SectionModel& section) {
    section.identifier.clear();
    section.tolerance_m = 0.001F;
    section.bottomSlope_deg = 30;
    section.sideSlope_deg = 45;
    section.stressRule = 1;
    section.bucklingRule = 2;
    const bool absent =
        section.stillWaterMoment_kNm(1) == 0 || section.stillWaterMoment_kNm(2) == 0;
    section.momentsAbsent = absent ? -1 : 0;
}

namespace {

void RecordLosses(const Losses& losses) {
    for (const std::wstring& text : losses) RecordedReports::Record("lost " + Narrow(text));
}

}  // namespace

std::unique_ptr<LegacySectionRecord> RecordOf(SectionModel& section) {
    auto record = std::make_unique<LegacySectionRecord>();
    RecordLosses(ToLegacyRecord(section, *record));
    return record;
}

SectionModel SectionOf(const LegacySectionRecord& record) {
    SectionModel section;
    RecordLosses(FromLegacyRecord(record, section));
    return section;
}

bool SameBytes(const LegacySectionRecord& a, const LegacySectionRecord& b) {
    return std::memcmp(&a, &b, sizeof(a)) == 0;
}

namespace {

void WriteShip(const std::string& file, const BasicShipData& bsd) {
    alignas(LegacyBsd) std::array<char, kLegacyBsdBufferSize> buffer{};
    auto& record = *reinterpret_cast<LegacyBsd*>(buffer.data());
    ToLegacyForm(bsd, record);
    record.Titles[0][0] = '\x90';  // OEM
    int16_t status = -1;
    exportvelkbsd(file.c_str(), &record, &status);
    ASSERT_EQ(status, 0);
}

}  // namespace

void WriteLegacyDatabase(const std::wstring& path, const std::vector<std::wstring>& names) {
    const std::string file = system::AnsiFromWide(path);
    int16_t status = -1;
    createvelkdb(file.c_str(), &status);
    ASSERT_EQ(status, 0);
    BasicShipData bsd = NewBasicShipData(L"OLD");
    bsd.Titles(1).Assign(L"\u00C9toile");
    bsd.TypeCodes(1) = 1;
    WriteShip(file, bsd);
    int16_t number = 0;
    ExchangeReport report;
    for (const std::wstring& name : names) {
        SectionModel section;
        section.name = name;
        section.x_m = ++number;
        section.breadth_m = section.draught_m = 10;
        section.panels.push_back(PanelOfNodes(2, 0, 1));
        ASSERT_TRUE(ExportSection({path, number}, section, bsd, report));
    }
    ListLegacySections(path, status);  // all is written
    RecordedReports::events.clear();
}

std::string LossText(int32_t number, MessageArguments arguments) {
    return Narrow(FormatMessage(number, arguments));
}

std::string WarningText(int32_t number, MessageArguments arguments) {
    const std::vector<std::string> before = std::exchange(RecordedReports::events, {});
    ReportMessage(number, arguments);
    const std::string text = RecordedReports::Of("warning").at(0);
    RecordedReports::events = before;
    return text;
}

std::string FailureText(int32_t number, MessageArguments arguments, int16_t status) {
    return WarningText(number, arguments) + "\r\r" + Narrow(LegacyStatusText(status));
}

std::string UnreadText(const std::wstring& path, int16_t status) {
    return WarningText(3556, {path, LegacyStatusText(status)});
}

// ---- The library -------------------------------------------------------------------------------

namespace {

using Library = FakeLegacyLibrary;

std::string LastPart(const char* path) {
    const std::string text(path);
    return text.substr(text.find_last_of('\\') + 1);
}

void Record(const std::string& function, const char* path, const std::string& rest = {}) {
    Library::calls.push_back(function + " " + LastPart(path) + rest);
}

std::string Number(float value) {
    return " " + Narrow(GeneralText(value));
}

template <class Block>
constexpr size_t OffsetOf() {
    return std::is_same_v<Block, LegacyMainSection> ? 0
           : std::is_same_v<Block, LegacyGeometry>  ? offsetof(LegacySectionRecord, geometry)
                                                    : offsetof(LegacySectionRecord, compLoad);
}

template <class Block>
int16_t RecordExport(const char* function, const char* path, int16_t section, Block* block) {
    Record(function, path, Number(section));
    for (LegacySectionRecord* record : {&Library::record, &Library::slots[section]}) {
        std::memcpy(reinterpret_cast<char*>(record) + OffsetOf<Block>(), block, sizeof(Block));
    }
    return 0;
}

template <class Block>
int16_t RecordImport(const char* function, const char* path, int16_t section, Block* block) {
    Record(function, path, Number(section));
    const auto slot = Library::slots.find(section);
    const LegacySectionRecord& record =
        slot == Library::slots.end() ? Library::record : slot->second;
    std::memcpy(block, reinterpret_cast<const char*>(&record) + OffsetOf<Block>(), sizeof(Block));
    return 0;
}

}  // namespace

std::vector<std::string> FakeLegacyLibrary::calls;
int16_t FakeLegacyLibrary::createStatus, FakeLegacyLibrary::extendStatus,
    FakeLegacyLibrary::nameStatus, FakeLegacyLibrary::listStatus, FakeLegacyLibrary::bsdStatus,
    FakeLegacyLibrary::naviStatus, FakeLegacyLibrary::extendFailsAt, FakeLegacyLibrary::listCount;
LegacySectionEntry FakeLegacyLibrary::entries[kLegacyListedSections];
LegacyBsd FakeLegacyLibrary::bsd;
LegacySectionRecord FakeLegacyLibrary::record;
std::map<int16_t, LegacySectionRecord> FakeLegacyLibrary::slots;

struct FakeLegacyLibrary::Fakes {
    FakeFunction<decltype(createvelkdb)> create{createvelkdb,
                                                [](const char* path, int16_t* status) {
                                                    Record("createvelkdb", path);
                                                    listCount = 0;
                                                    slots.clear();
                                                    *status = createStatus;
                                                }};
    FakeFunction<decltype(extendvelkdb)> extend{extendvelkdb,
                                                [](const char* path, int16_t* status) {
                                                    Record("extendvelkdb", path);
                                                    *status = extendStatus;
                                                    if (extendFailsAt != 0 && --extendFailsAt == 0)
                                                        *status = 5;
                                                    if (*status == 0) ++listCount;
                                                }};
    FakeFunction<decltype(addsectvelkdb)> name{
        addsectvelkdb, [](const char* path, const char* text, float position, int16_t* status) {
            Record("addsectvelkdb", path, " '" + std::string(text) + "'" + Number(position));
            *status = nameStatus;
            if (nameStatus != 0 || listCount < 1 || listCount > kLegacyListedSections) return;
            std::strncpy(entries[listCount - 1].name, text, sizeof(entries[0].name));
        }};
    FakeFunction<decltype(getvelksections)> list{
        getvelksections,
        [](const char* path, int16_t* status, int16_t* count, LegacySectionEntry* found) {
            Record("getvelksections", path);
            *status = listStatus;
            *count = listCount;
            std::copy(std::begin(entries), std::end(entries), found);
        }};
    FakeFunction<decltype(exportvelkmainsec)> exportMain{
        exportvelkmainsec, [](const char* path, int16_t section, LegacyMainSection* block) {
            return RecordExport("exportvelkmainsec", path, section, block);
        }};
    FakeFunction<decltype(exportsectiongeometry)> exportGeometry{
        exportsectiongeometry, [](const char* path, int16_t section, LegacyGeometry* block) {
            return RecordExport("exportsectiongeometry", path, section, block);
        }};
    FakeFunction<decltype(exportvelkcompload)> exportLoads{
        exportvelkcompload,
        [](const char* path, int16_t section, void* member, LegacyCompLoad* block) {
            EXPECT_NE(member, nullptr);
            return RecordExport("exportvelkcompload", path, section, block);
        }};
    FakeFunction<decltype(importvelkmainsec)> importMain{
        importvelkmainsec, [](const char* path, int16_t section, LegacyMainSection* block) {
            return RecordImport("importvelkmainsec", path, section, block);
        }};
    FakeFunction<decltype(importsectiongeometry)> importGeometry{
        importsectiongeometry, [](const char* path, int16_t section, LegacyGeometry* block) {
            return RecordImport("importsectiongeometry", path, section, block);
        }};
    FakeFunction<decltype(importvelkcompload)> importLoads{
        importvelkcompload,
        [](const char* path, int16_t section, void* member, LegacyCompLoad* block) {
            EXPECT_NE(member, nullptr);
            return RecordImport("importvelkcompload", path, section, block);
        }};
    FakeFunction<decltype(exportvelkbsd)> exportBsd{
        exportvelkbsd, [](const char* path, const LegacyBsd* given, int16_t* status) {
            Record("exportvelkbsd", path);
            bsd = *given;
            *status = bsdStatus;
        }};
    FakeFunction<decltype(importvelknavi)> importNavi{
        importvelknavi, [](const char* path, LegacyBsd* read, int16_t* status) {
            Record("importvelknavi", path);
            *read = bsd;
            *status = naviStatus;
        }};
};

FakeLegacyLibrary::FakeLegacyLibrary() : fakes(std::make_unique<Fakes>()) {
    calls.clear();
    createStatus = extendStatus = nameStatus = listStatus = bsdStatus = naviStatus = 0;
    extendFailsAt = listCount = 0;
    for (LegacySectionEntry& entry : entries) entry = {};
    bsd = {};
    std::memset(&record, 0, sizeof(record));
    slots.clear();
}

FakeLegacyLibrary::~FakeLegacyLibrary() = default;

}  // namespace corvane::test
