#include "shell/bulkhead_outline.h"

#include <algorithm>
#include <cmath>

#include "database/section_block.h"
#include "preview/section_geometry.h"
#include "shell/model_list.h"

namespace corvane {
namespace {

// Sections without plating are not searched for ever.
constexpr size_t kMostSections = 8;

// Brings the sections that are on the ship into order, the nearest one first.
void SortByDistance(std::vector<SectionPlace>& sections, float x_m) {
    std::erase_if(sections, [](const SectionPlace& section) { return !IsOfShip(section.x_m); });
    std::ranges::stable_sort(sections, {}, [x_m](const SectionPlace& section) {
        return std::abs(static_cast<double>(section.x_m) - x_m);
    });
}

// False when the section cannot be read.
bool ReadOutline(const std::wstring& path, const BlockPlace& place, ShipOutline& outline) {
    SectionModel section;
    if (!ReadSectionBlock(path, place, false, section)) return false;
    LibraryView view;
    ComputeSection(section, view);
    const Outline half = HalfOutline(view.section);
    if (HasArea(half)) outline = {OutlineSource::kSection, half, section.name, section.x_m};
    return true;
}

}  // namespace

std::vector<SectionPlace> SectionPlaces(std::span<const ModelRow> rows) {
    std::vector<SectionPlace> sections;
    for (const ModelRow& row : rows) {
        const bool isSection = row.kind == ModelKind::kSection && row.hasOwnNumber;
        if (isSection) sections.push_back({PlaceOf(row), row.x_m});
    }
    return sections;
}

ShipOutline OutlineAt(const std::wstring& path, std::vector<SectionPlace> sections,
                      const BasicShipData& bsd, float x_m) {
    ShipOutline outline;
    if (!std::isfinite(x_m)) x_m = 0;
    SortByDistance(sections, x_m);
    for (size_t i = 0; i < std::min(sections.size(), kMostSections); ++i) {
        if (!ReadOutline(path, sections[i].place, outline)) break;
        if (outline.source != OutlineSource::kNone) return outline;
    }
    outline.half = HalfOutline(bsd.MainData(2), bsd.MainData(3));
    if (!outline.half.empty()) outline.source = OutlineSource::kBreadthAndDepth;
    return outline;
}

}  // namespace corvane
