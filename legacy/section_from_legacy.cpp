#include "legacy/section_from_legacy.h"

#include "database/model_kind.h"
#include "database/section_view.h"
#include "legacy/absolute_geometry.h"
#include "legacy/compartments.h"
#include "legacy/fields.h"
#include "legacy/items_from_legacy.h"
#include "legacy/legacy_tables.h"
#include "legacy/strakes_from_legacy.h"
#include "report/reporters.h"

namespace corvane {
namespace {

constexpr int16_t kTrue = -1;

constexpr float kTolerance_m = 0.001F;

void ReadMain(LegacyMainSection legacy, SectionModel& section) {
    section.name = TextOf(legacy.name, sizeof(legacy.name));
    CopyMainFields(FromLegacy(), section, legacy);
    // Hogging and sagging in still water decide; the other moments do not.
    const auto& moment = legacy.stillWaterMoment_kNm;
    section.momentsAbsent = moment[0] == 0 || moment[1] == 0 ? kTrue : 0;
    section.deckModulus_m3 = legacy.deckModulus_m3;
    section.bottomModulus_m3 = legacy.bottomModulus_m3;
    const bool absent = legacy.deckModulus_m3 == 0 || legacy.bottomModulus_m3 == 0;
    section.moduliAbsent = absent ? kTrue : int16_t{0};
    section.bottomSlope_deg = kImportedBottomSlope_deg;
    section.sideSlope_deg = kImportedSideSlope_deg;
    section.stressRule = kImportedStressRule;
    section.bucklingRule = kImportedBucklingRule;
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

Losses FromLegacyRecord(const LegacySectionRecord& record, SectionModel& section) {
    ReportStatus(kMsgConvertingFromLegacy, {TextOf(record.main.name, sizeof(record.main.name))});
    const QuietStatus quiet;
    Losses losses;
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
    ReadItems({section, view.section, record.geometry, losses});
    ReadCompartments(record, section);
    return losses;
}

}  // namespace corvane
