#include "shell/comparison_picture.h"

#include <cmath>
#include <utility>

#include "bsd/bsd_file.h"
#include "preview/section_figure.h"
#include "preview/section_geometry.h"
#include "report/reporters.h"
#include "shell/state.h"

namespace corvane {
namespace {

// What is under the other section is wider than that, and seen on both sides of it.
constexpr SectionLines kBeforeLines{kBeforeColour, 0.8};
constexpr SectionLines kNowLines{kNowColour};

// Around the sections [mm].
constexpr double kMargin_mm = 3;

PaneShip ShipOf(const ComparisonPicture& picture) {
    return {picture.bsd, [&picture](float x_m) {
                return OutlineAt(picture.path, picture.sections, picture.bsd, x_m);
            }};
}

// ---- What is shown -----------------------------------------------------------------------------

// The ship and the sections of the database that the model is in.
void ReadShip(ComparisonPicture& picture, const Comparison& comparison) {
    picture.bsd = BasicShipData();
    LoadBsdFromDatabase(picture.path, picture.bsd, NoBlock::kIsNoFault);
    picture.sections.clear();
    for (const ComparedModel& model : comparison.models) {
        const std::optional<ModelEntry>& entry = picture.isNow ? model.now : model.before;
        if (!entry || entry->kind != ModelKind::kSection) continue;
        picture.sections.push_back({PlaceIn(picture.path, *entry).place, entry->x});
    }
}

bool ReadModel(ComparisonPicture& picture, const Comparison& comparison,
               const ComparedModel& model) {
    const QuietStatus quiet;
    const ModelEntry& shown = AnyOf(model);
    picture.isNow = model.now.has_value();
    picture.path = picture.isNow ? comparison.now : comparison.before;
    if (shown.kind == ModelKind::kBulkhead) ReadShip(picture, comparison);
    if (!ReadIntoPane(picture.pane, picture.path, PlaceIn(picture.path, shown).place, shown.kind)) {
        return false;
    }
    picture.hasBefore = picture.isNow && model.before && shown.kind == ModelKind::kSection;
    PreviewPane before;
    if (picture.hasBefore &&
        !ReadIntoPane(before, comparison.before, PlaceIn(comparison.before, *model.before).place,
                      shown.kind)) {
        return false;
    }
    picture.before = std::move(before.section);
    return true;
}

// What both sections take up; false when none of them has plating.
bool ExtentOfBoth(ComparisonPicture& picture, ShipBox& extent) {
    extent = {};
    for (SectionModel* section : {&picture.before, &picture.pane.section}) {
        LibraryView view;
        ShipBox one;
        if (section == &picture.before && !picture.hasBefore) continue;
        ComputeSection(*section, view);
        if (ExtentOf(view.section, one)) extent = Union(extent, one);
    }
    return !IsEmpty(extent);
}

void ShowSections(ComparisonPicture& picture) {
    ShipBox extent;
    picture.pane.isShown = ExtentOfBoth(picture, extent);
    if (!picture.pane.isShown) {
        picture.why = GetMessage(kMsgNoPlating);
    } else if (picture.hasBefore) {
        picture.label = GetMessage(kMsgBothSections);
    } else {
        picture.label = GetMessage(picture.isNow ? kMsgSectionNow : kMsgSectionBefore);
    }
}

void ShowBulkheads(ComparisonPicture& picture) {
    picture.why = ShowInPane(picture.pane, ShipOf(picture), ModelKind::kBulkhead);
    if (!picture.why.empty()) return;
    picture.label = GetMessage(picture.isNow ? kMsgArrangementNow : kMsgArrangementBefore);
}

// ---- Drawing -----------------------------------------------------------------------------------

// Coordinates that no ship has may leave the picture without a scale.
bool HasScale(const Picture& picture) {
    return picture.scaleWidth > 0 && std::isfinite(picture.scaleWidth);
}

void FitSections(const ShipBox& extent, Picture& picture) {
    const SheetSize sheet{WidthOf_mm(picture), HeightOf_mm(picture), kMargin_mm};
    FitPicture(picture, {(extent.left + extent.right) / 2, (extent.bottom + extent.top) / 2},
               MakeFittedFigure(sheet, extent).mmPerMetre);
}

// The section of before first: what is the same in both has a rim of its colour.
void AddBoth(ComparisonPicture& shown, Figure& figure) {
    if (shown.hasBefore) {
        LibraryView before;
        ComputeSection(shown.before, before);
        AddSectionLines(figure, before.section, kBeforeLines);
    }
    LibraryView view;
    ComputeSection(shown.pane.section, view);
    AddSectionLines(figure, view.section, shown.isNow ? kNowLines : kBeforeLines);
    AnnotatePicture({shown.pane.section, view.section}, shown.pane.options, shown.pane.places,
                    figure);
}

void DrawSections(ComparisonPicture& shown, Picture& picture) {
    ShipBox extent;
    if (!ExtentOfBoth(shown, extent)) return;
    picture.setFont(picture, static_cast<float>(extent.right - extent.left));
    FitSections(extent, picture);
    picture.clear(picture);
    if (!HasScale(picture)) return;
    Figure figure = SheetOver(picture);
    AddBoth(shown, figure);
    picture.drawFigure(picture, figure);
}

}  // namespace

void EmptyPicture(ComparisonPicture& picture, const std::wstring& why) {
    EmptyPane(picture.pane);
    picture.hasBefore = false;
    picture.why = why;
    picture.label.clear();
}

void ShowCompared(ComparisonPicture& picture, const Comparison& comparison,
                  const ComparedModel& model) {
    const ModelKind kind = AnyOf(model).kind;
    EmptyPicture(picture, WhyNoPicture(kind));
    // What else is switched on in the View menu would cover the differences.
    const PictureOptions& options = shell.preview.options;
    picture.pane.options = {.hasScaleBar = options.hasScaleBar, .hasAxes = options.hasAxes};
    if (!picture.why.empty() || !ReadModel(picture, comparison, model)) return;
    if (kind == ModelKind::kBulkhead) {
        ShowBulkheads(picture);
    } else {
        ShowSections(picture);
    }
}

bool ShowNextComparedBulkhead(ComparisonPicture& picture) {
    if (!TurnToNextBulkhead(picture.pane)) return false;
    picture.label = BulkheadText(picture.pane);
    return true;
}

void DrawComparison(ComparisonPicture& shown, Picture& picture) {
    if (shown.pane.isShown) DrawSections(shown, picture);
    if (shown.pane.areBulkheadsShown) DrawPane(shown.pane, ShipOf(shown), picture);
}

}  // namespace corvane
