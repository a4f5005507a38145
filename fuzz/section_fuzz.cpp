// Any bytes as a section block: what is read can be written, and what was written reads back as
// itself.
#include "fuzz/fuzz.h"

#include "database/section_block.h"
#include "database/section_view.h"
#include "fuzz/block_text.h"

namespace {

using namespace corvane;
using fuzz::Require;

SectionModel Read(std::string_view bytes, ModelKind kind) {
    SectionModel section;
    fuzz::ReadBytes(bytes, [&](TextReader& reader) { ReadSectionLines(reader, kind, section); });
    return section;
}

void RequireCounts(SectionModel& section) {
    Require(section.panels.size() <= INT16_MAX && section.compartments.size() <= INT16_MAX);
    for (const Panel& panel : section.panels) {
        Require(panel.stiffeners.size() == panel.stiffenerDetails.size());
        Require(panel.nodes.size() <= INT16_MAX);
    }
    LibraryView view;
    MakeLibraryView(section, view);
    for (const Strake& strake : view.strakes) {
        Require(strake.itemCount == std::max(strake.nodeCount - 1, 0));
    }
}

}  // namespace

CORVANE_FUZZ_TARGET(section) {
    if (bytes.size() > 64 * 1024) return;
    SectionModel bulkheads = Read(bytes, ModelKind::kBulkhead);
    RequireCounts(bulkheads);

    SectionModel section = Read(bytes, ModelKind::kSection);
    RequireCounts(section);
    fuzz::RequireStable(
        section, [](std::string_view text) { return Read(text, ModelKind::kSection); },
        WriteSectionBody);
}
