#include "legacy/compartments.h"
#include "legacy/fields.h"
#include "legacy/from_legacy.h"
#include "legacy/geometry.h"
#include "legacy/section_record.h"
#include "platform/system.h"
#include "report/reporters.h"
#include "text/text.h"

namespace corvane {
namespace {

constexpr int16_t kTrue = -1;

// What every imported section has, whatever the record holds.
constexpr float kTolerance_m = 0.001F;
constexpr float kBottomSlope_deg = 30;
constexpr float kSideSlope_deg = 45;
constexpr int32_t kStressRule = 1;
constexpr int32_t kBucklingRule = 2;

void ReadMain(LegacyMainSection legacy, SectionModel& section) {
    section.name = TextOf(legacy.name, sizeof(legacy.name));
    CopyMainFields(FromLegacy(), section, legacy);
    // Hogging and sagging in still water tell; the other moments don't.
    const auto& moment = legacy.stillWaterMoment_kNm;
    section.momentsAbsent = moment[0] == 0 || moment[1] == 0 ? kTrue : 0;
    section.deckModulus_m3 = legacy.deckModulus_m3;
    section.bottomModulus_m3 = legacy.bottomModulus_m3;
    const bool absent = legacy.deckModulus_m3 == 0 || legacy.bottomModulus_m3 == 0;
    section.moduliAbsent = absent ? kTrue : int16_t{0};
    section.bottomSlope_deg = kBottomSlope_deg;
    section.sideSlope_deg = kSideSlope_deg;
    section.stressRule = kStressRule;
    section.bucklingRule = kBucklingRule;
}

void ReadItems(const LegacyImport& work) {
    ReadStiffeners(work);
    ReadSpans(work);
    ReadBrackets(work);
    ReadOpenings(work);
    ReadPillars(work);
    ReadPlates(work);
}

}  // namespace

std::wstring TextOf(const char* field, size_t size) {
    return Trim(CutAtNul(system::WideFromAnsi({field, size})));
}

void FromLegacyRecord(const LegacySectionRecord& record, SectionModel& section) {
    ReportStatus(kMsgConvertingFromLegacy, {TextOf(record.main.name, sizeof(record.main.name))});
    section = SectionModel();
    section.formatVersion = kSectionFormatVersion;
    section.tolerance_m = kTolerance_m;
    ReadMain(record.main, section);
    LegacyHeadRest head = record.geometry.head;
    CopyHeadRest(FromLegacy(), section, head);
    ReportStatus(kMsgRebuildingNodes);
    ReadStrakes(record.geometry, section);
    LibraryView view;
    MakeLibraryView(section, view);
    ComputeAbsoluteGeometry(view.section, section.name);
    ReadItems({section, view.section, record.geometry});
    ReadCompartments(record, section);
}

}  // namespace corvane
