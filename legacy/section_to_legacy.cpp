#include "legacy/section_to_legacy.h"

#include <algorithm>
#include <cstring>

#include "database/section_view.h"
#include "legacy/absolute_geometry.h"
#include "legacy/compartments.h"
#include "legacy/items_to_legacy.h"
#include "legacy/legacy_tables.h"
#include "legacy/strakes_to_legacy.h"
#include "report/reporters.h"

namespace corvane {
namespace {

void FillMain(const LegacyExport& work) {
    SectionModel& section = work.section;
    LegacyMainSection& legacy = work.record.main;
    PutText(section.name, {legacy.name, sizeof(legacy.name)}, work.losses);
    CopyMainFields(ToLegacy{work.cut}, section, legacy);
    if (section.moduliAbsent != 0) return;
    legacy.deckModulus_m3 = section.deckModulus_m3;
    legacy.bottomModulus_m3 = section.bottomModulus_m3;
}

void FillGeometry(const LegacyExport& work) {
    CopyHeadRest(ToLegacy{work.cut}, work.section, work.record.geometry.head);
    FillStrakes(work);
    FillStiffeners(work);
    FillSpans(work);
    FillBrackets(work);
    FillOpenings(work);
    FillPillars(work);
    FillPlates(work);
}

}  // namespace

Losses ToLegacyRecord(SectionModel& section, LegacySectionRecord& record) {
    std::memset(&record, 0, sizeof(record));
    ReportStatus(kMsgConvertingToLegacy, {section.name});
    const QuietStatus quiet;
    Losses losses;
    LibraryView view;
    MakeLibraryView(section, view);
    ComputeAbsoluteGeometry(view.section, section.name);
    for (Compartment& compartment : section.compartments) {
        ComputeCompartment(view.section, compartment);
    }
    CutNumbers cut;
    const std::vector<LegacyNeed> needs = NeedsOf(section);
    const LegacyExport work{section, view.section, record, losses, cut, {losses, needs}};
    const CompartmentList list = ListCompartments(work);
    FillMain(work);
    FillGeometry(work);
    FillCompLoad(work);
    FillCompartments(work, list);
    if (cut.count > 0) NoteLoss(losses, kMsgNumbersCut, {cut.count, cut.first});
    return losses;
}

}  // namespace corvane
