#include "shell/bulkhead_outline.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "database/section_block.h"
#include "database/section_view.h"
#include "preview/section_geometry.h"
#include "shell/model_list.h"

namespace corvane {
namespace {

// Sections without plating are not searched for ever.
constexpr size_t kMostSections = 8;

// The sections from the nearest one to the farthest one.
std::vector<const ModelRow*> NearestSections(std::span<const ModelRow> rows, float x_m) {
    std::vector<const ModelRow*> sections;
    for (const ModelRow& row : rows) {
        const bool isSection = row.kind == ModelKind::kSection && row.hasOwnNumber;
        if (isSection && IsOfShip(row.x_m)) sections.push_back(&row);
    }
    std::ranges::stable_sort(sections, {}, [x_m](const ModelRow* row) {
        return std::abs(static_cast<double>(row->x_m) - x_m);
    });
    return sections;
}

// False when the section cannot be read.
bool ReadOutline(const std::wstring& path, const ModelRow& row, ShipOutline& outline) {
    SectionModel section;
    if (!ReadSectionBlock(path, PlaceOf(row), false, section)) return false;
    LibraryView view;
    MakeLibraryView(section, view);
    ComputeSection(view.section);
    const Outline half = HalfOutline(view.section);
    if (HasArea(half)) outline = {OutlineSource::kSection, half, section.name, section.x_m};
    return true;
}

}  // namespace

ShipOutline OutlineAt(const std::wstring& path, std::span<const ModelRow> rows,
                      const BasicShipData& bsd, float x_m) {
    ShipOutline outline;
    if (!std::isfinite(x_m)) x_m = 0;
    const std::vector<const ModelRow*> sections = NearestSections(rows, x_m);
    for (size_t i = 0; i < std::min(sections.size(), kMostSections); ++i) {
        if (!ReadOutline(path, *sections[i], outline)) break;
        if (outline.source != OutlineSource::kNone) return outline;
    }
    outline.half = HalfOutline(bsd.MainData(2), bsd.MainData(3));
    if (!outline.half.empty()) outline.source = OutlineSource::kBreadthAndDepth;
    return outline;
}

}  // namespace corvane
