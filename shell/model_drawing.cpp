#include "shell/model_drawing.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

#include "database/section_block.h"
#include "database/section_view.h"
#include "preview/section_figure.h"
#include "preview/section_geometry.h"
#include "report/reporters.h"
#include "shell/picture_facts.h"
#include "shell/preview_pane.h"
#include "shell/state.h"

namespace corvane {
namespace {

// Only a section has places that can be marked.
std::vector<PicturePlace> MarkedPlaces() {
    return shell.preview.isShown ? shell.preview.places : std::vector<PicturePlace>();
}

// Room for the rulers at the left and below, which would cover the model.
ShipBox WithRulers(const ShipBox& extent) {
    constexpr double kRulers = 0.06;  // of the breadth and the height
    if (!shell.preview.options.hasAxes || IsEmpty(extent)) return extent;
    return {extent.left - (extent.right - extent.left) * kRulers,
            extent.bottom - (extent.top - extent.bottom) * kRulers, extent.right, extent.top};
}

// With what is switched on over it, and marks.
ModelDrawing DrawingWith(std::vector<PicturePlace> places, SectionModel& section) {
    const auto view = std::make_shared<LibraryView>();
    ComputeSection(section, *view);
    ModelDrawing drawing;
    ShipBox extent;
    if (ExtentOf(view->section, extent)) drawing.extent = WithRulers(extent);
    drawing.draw = [view, &section, marked = std::move(places)](Figure& figure) {
        AddSection(figure, view->section);
        AnnotatePicture({section, view->section}, shell.preview.options, marked, figure);
    };
    return drawing;
}

ModelDrawing DrawingOfBulkheads(double width_mm, double height_mm) {
    const auto layout =
        std::make_shared<const BulkheadLayout>(LayOutShownBulkheads(width_mm, height_mm));
    return {layout->extent, [layout](Figure& figure) {
                DrawBulkheadsWith(shell.preview.options, *layout, figure);
            }};
}

// A line "label tab value".
PageTableLine LineOfTable(const std::wstring& text) {
    const size_t tab = text.find(L'\t');
    if (tab == std::wstring::npos) return {text, L""};
    return {text.substr(0, tab), text.substr(tab + 1)};
}

}  // namespace

ModelDrawing DrawingOf(SectionModel& section) {
    return DrawingWith({}, section);
}

ModelDrawing DrawingOfShown(double width_mm, double height_mm) {
    if (shell.preview.isShown) {
        return DrawingWith(
            shell.preview.options.hasTable ? MarkedPlaces() : std::vector<PicturePlace>(),
            shell.preview.section);
    }
    if (shell.preview.areBulkheadsShown) return DrawingOfBulkheads(width_mm, height_mm);
    return {};
}

bool IsAnythingMarked() {
    return !MarkedPlaces().empty();
}

std::vector<PageTableLine> TableOfMarked() {
    std::vector<PageTableLine> table;
    if (!shell.preview.options.hasTable) return table;
    const std::wstring facts = PlaceFacts(shell.preview.section, MarkedPlaces());
    for (size_t begin = 0; begin < facts.size();) {
        const size_t end = std::min(facts.find(L'\r', begin), facts.size());
        table.push_back(LineOfTable(facts.substr(begin, end - begin)));
        begin = end + 1;
    }
    return table;
}

std::vector<ModelRow> SectionsToDraw() {
    std::vector<ModelRow> sections;
    std::ranges::copy_if(
        shell.database.rows, std::back_inserter(sections),
        [](const ModelRow& row) { return row.kind == ModelKind::kSection && row.hasOwnNumber; });
    return sections;
}

std::wstring ReadToDraw(const ModelRow& row, SectionModel& section) {
    const NoWarningBoxes quiet;
    if (!ReadSectionBlock(shell.database.path, PlaceOf(row), false, section)) {
        return GetMessage(kMsgSectionNotRead);
    }
    return WhyNoPicture(section, shell.database.bsd);
}

}  // namespace corvane
