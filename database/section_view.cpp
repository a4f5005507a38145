#include "database/section_view.h"

#include <algorithm>

#include "database/rows.h"

namespace corvane {
namespace {

// The library's stiffener has its own profile: that of the first span, turned as the row says.
void AdoptProfiles(Panel& panel) {
    const size_t count = std::min(panel.stiffeners.size(), panel.stiffenerDetails.size());
    for (size_t i = 0; i < count; ++i) {
        panel.stiffeners[i].mirrored = panel.stiffenerDetails[i].mirrored;
        if (panel.stiffenerDetails[i].spans.empty()) continue;
        const Scantlings& profile = panel.stiffenerDetails[i].spans.front().scantlings;
        Stiffener& stiffener = panel.stiffeners[i];
        stiffener.profile = profile.type;
        stiffener.webHeight_mm = profile.webHeight_mm;
        stiffener.webThickness_mm = profile.webThickness_mm;
        stiffener.flangeBreadth_mm = profile.flangeBreadth_mm;
        stiffener.flangeThickness_mm = profile.flangeThickness_mm;
    }
}

Strake StrakeOfPanel(Panel& panel, int16_t number) {
    AdoptProfiles(panel);
    const int16_t nodeCount = ClampToCount(panel.nodes.size());
    const int16_t itemCount = static_cast<int16_t>(std::max(nodeCount - 1, 0));
    panel.items.resize(static_cast<size_t>(itemCount));
    panel.plateEnds.clear();
    for (const Plate& plate : panel.plates) panel.plateEnds.push_back(plate.end_m);

    Strake strake{};
    strake.values[0] = panel.spacing_m;
    strake.values[1] = panel.span_m;
    strake.values[2] = panel.thickness_mm;
    strake.number = number;
    strake.nodeCount = nodeCount;
    strake.itemCount = itemCount;
    strake.stiffenerCount = ClampToCount(panel.stiffeners.size());
    strake.plateCount = ClampToCount(panel.plates.size());
    strake.nodes = panel.nodes.data();
    strake.items = panel.items.data();
    strake.stiffeners = panel.stiffeners.data();
    strake.plateEnds = panel.plateEnds.data();
    return strake;
}

CompartmentOutline OutlineOf(const Compartment& compartment) {
    CompartmentOutline outline{};
    outline.nodeCount = ClampToCount(compartment.outline.size());
    outline.nodes = compartment.outline.data();
    return outline;
}

}  // namespace

void MakeLibraryView(SectionModel& model, LibraryView& view) {
    view.strakes.clear();
    view.outlines.clear();
    view.section = {};
    const int16_t panels = ClampToCount(model.panels.size());
    for (int16_t i = 0; i < panels; ++i) {
        view.strakes.push_back(StrakeOfPanel(model.panels[i], static_cast<int16_t>(i + 1)));
        if (view.strakes.back().itemCount > 0) view.section.geometryPresent = -1;
    }
    for (const Compartment& compartment : model.compartments) {
        view.outlines.push_back(OutlineOf(compartment));
    }
    view.section.strakeCount = panels;
    view.section.compartmentCount = ClampToCount(model.compartments.size());
    view.section.symmetryMode = ClampToInt16(model.symmetryMode);
    view.section.tolerance = model.tolerance_m;
    view.section.strakes = view.strakes.data();
    view.section.compartments = view.outlines.data();
}

}  // namespace corvane
