#include <algorithm>
#include <cstring>

#include "legacy/compartments.h"
#include "legacy/fields.h"
#include "legacy/geometry.h"
#include "legacy/section_record.h"
#include "legacy/to_legacy.h"
#include "platform/system.h"
#include "report/reporters.h"
#include "text/text.h"

namespace corvane {
namespace {

void FillMain(SectionModel& section, LegacyMainSection& legacy) {
    PutText(section.name, legacy.name, sizeof(legacy.name));
    CopyMainFields(ToLegacy(), section, legacy);
    if (section.moduliAbsent != 0) return;
    legacy.deckModulus_m3 = section.deckModulus_m3;
    legacy.bottomModulus_m3 = section.bottomModulus_m3;
}

void FillGeometry(const LegacyExport& work) {
    CopyHeadRest(ToLegacy(), work.section, work.record.geometry.head);
    FillStrakes(work);
    FillStiffeners(work);
    FillSpans(work);
    FillBrackets(work);
    FillOpenings(work);
    FillPillars(work);
    FillPlates(work);
}

}  // namespace

void PutText(const std::wstring& text, char* field, size_t size) {
    const std::string bytes = system::AnsiFromWide(CutAtNul(text));
    std::memset(field, 0, size);
    bytes.copy(field, size);
}

void ToLegacyRecord(SectionModel& section, LegacySectionRecord& record) {
    std::memset(&record, 0, sizeof(record));
    ReportStatus(kMsgConvertingToLegacy, {section.name});
    LibraryView view;
    MakeLibraryView(section, view);
    ComputeAbsoluteGeometry(view.section, section.name);
    for (Compartment& compartment : section.compartments) {
        ComputeCompartment(view.section, compartment);
    }
    const LegacyExport work{section, view.section, record};
    const CompartmentList list = ListCompartments(work);
    FillMain(section, record.main);
    FillGeometry(work);
    FillCompLoad(work);
    FillCompartments(work, list);
}

}  // namespace corvane
