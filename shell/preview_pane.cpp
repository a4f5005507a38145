#include "shell/preview_pane.h"

#include <algorithm>

#include "bsd/frames.h"
#include "database/bulkhead_block.h"
#include "database/listing.h"
#include "database/section_block.h"
#include "database/section_view.h"
#include "preview/bulkhead_figure.h"
#include "report/reporters.h"
#include "shell/bulkhead_outline.h"
#include "shell/model_list.h"
#include "shell/state.h"
#include "text/numbers.h"
#include "text/text.h"

namespace corvane {
namespace {

// A frame is at a model's position when the two are no farther apart than this [m].
constexpr double kSamePosition_m = 0.001;

// A number in a format such as "#0.000" or "0.0##".
std::wstring FormattedNumber(double value, std::wstring_view format) {
    const size_t point = format.find(L'.');
    if (point == std::wstring_view::npos) return DecimalText(value, 0, 0);
    const std::wstring_view decimals = format.substr(point + 1);
    const auto least = static_cast<int>(std::count(decimals.begin(), decimals.end(), L'0'));
    const auto optional = static_cast<int>(std::count(decimals.begin(), decimals.end(), L'#'));
    return DecimalText(value, least, least + optional);
}

// ---- Bulkheads ---------------------------------------------------------------------------------

BulkheadLayout LayOut(PreviewPane& pane, const PaneShip& ship, double width_mm, double height_mm) {
    const auto outline = [&pane, &ship] {
        if (!pane.outline) pane.outline = ship.outline(pane.bulkheads.x_m);
        return *pane.outline;
    };
    return LayOutBulkheads({pane.bulkheads, outline, width_mm, height_mm, pane.bulkhead});
}

std::wstring WhyNoBulkheads(PreviewPane& pane, const PaneShip& ship) {
    constexpr double kAnySize_mm = 100;
    switch (LayOut(pane, ship, kAnySize_mm, kAnySize_mm).why) {
        case WhyNoBulkhead::kNoBulkheads:
            return GetMessage(kMsgNoBulkheads);
        case WhyNoBulkhead::kNoOutline:
            return GetMessage(kMsgNoBulkheadOutline);
        case WhyNoBulkhead::kNone:
            break;
    }
    return {};
}

void DrawBulkheadPane(PreviewPane& pane, const PaneShip& ship, Picture& picture) {
    const BulkheadLayout layout = LayOut(pane, ship, WidthOf_mm(picture), HeightOf_mm(picture));
    const ShipBox& extent = layout.extent;
    FitPicture(picture, {(extent.left + extent.right) / 2, (extent.bottom + extent.top) / 2},
               layout.mmPerMetre);
    picture.clear(picture);
    if (!(picture.scaleWidth > 0)) return;
    Figure figure = SheetOver(picture);
    DrawBulkheadsWith(pane.options, layout, figure);
    picture.drawFigure(picture, figure);
}

// ---- Sections ----------------------------------------------------------------------------------

// With what is switched on over the section, and the marks of the user.
void DrawSection(PreviewPane& pane, const BasicShipData& bsd, Picture& picture) {
    LibraryView view;
    MakeLibraryView(pane.section, view);
    DrawSectionPreview(view.section, bsd, picture);
    if (!(picture.scaleWidth > 0)) return;
    Figure figure = SheetOver(picture);
    AnnotatePicture({pane.section, view.section}, pane.options, pane.places, figure);
    if (!figure.items.empty()) picture.drawFigure(picture, figure);
}

// ---- The main window ---------------------------------------------------------------------------

PaneShip OpenShip() {
    return {shell.database.bsd, [](float x_m) {
                const OpenDatabase& open = shell.database;
                return OutlineAt(open.path, SectionPlaces(open.rows), open.bsd, x_m);
            }};
}

void ClearPicture(const std::wstring& why) {
    EmptyPane(shell.preview);
    shell.view.clearPreview(why);
}

bool IsPreviewed(const ModelRow& row) {
    return row.hasOwnNumber && WhyNoPicture(row.kind).empty() && shell.view.isPreviewOn();
}

// False when the model could not be read.
bool ReadAndShow(const ModelRow& row, float& x_m) {
    PreviewPane& pane = shell.preview;
    if (!ReadIntoPane(pane, shell.database.path, PlaceOf(row), row.kind)) return false;
    x_m = row.kind == ModelKind::kBulkhead ? pane.bulkheads.x_m : pane.section.x_m;
    const std::wstring why = ShowInPane(pane, OpenShip(), row.kind);
    if (why.empty()) {
        shell.view.redrawPreview();
    } else {
        shell.view.clearPreview(why);
    }
    ResetMousePointer();
    return true;
}

// The position [m] of a model that has no picture. A number that does not lead to one model alone
// leads nowhere: the list's position is the row's own.
bool ReadPosition(const ModelRow& row, float& x_m) {
    x_m = row.x_m;
    return !row.hasOwnNumber || ReadModelPosition(shell.database.path, PlaceOf(row), x_m);
}

// Shows the model in the picture, as far as it can be shown there. False when it could not be read.
bool ShowInPicture(const ModelRow& row, float& x_m) {
    if (IsPreviewed(row)) return ReadAndShow(row, x_m);
    ClearPicture(shell.view.isPreviewOn() ? WhyNoPicture(row.kind) : L"");
    return ReadPosition(row, x_m);
}

}  // namespace

// ---- Any pane ----------------------------------------------------------------------------------

void EmptyPane(PreviewPane& pane) {
    pane.isShown = false;
    pane.areBulkheadsShown = false;
}

bool ReadIntoPane(PreviewPane& pane, const std::wstring& path, const BlockPlace& place,
                  ModelKind kind) {
    if (kind == ModelKind::kBulkhead) return ReadBulkheadBlock(path, place, pane.bulkheads);
    return ReadSectionBlock(path, place, false, pane.section);
}

std::wstring ShowInPane(PreviewPane& pane, const PaneShip& ship, ModelKind kind) {
    EmptyPane(pane);
    const bool areBulkheads = kind == ModelKind::kBulkhead;
    if (areBulkheads) {
        pane.outline.reset();
        pane.bulkhead = 0;
    }
    std::wstring why =
        areBulkheads ? WhyNoBulkheads(pane, ship) : WhyNoPicture(pane.section, ship.bsd);
    pane.isShown = why.empty() && !areBulkheads;
    pane.areBulkheadsShown = why.empty() && areBulkheads;
    return why;
}

bool HasPicture(const PreviewPane& pane) {
    return pane.isShown || pane.areBulkheadsShown;
}

void DrawPane(PreviewPane& pane, const PaneShip& ship, Picture& picture) {
    if (pane.isShown) DrawSection(pane, ship.bsd, picture);
    if (pane.areBulkheadsShown) DrawBulkheadPane(pane, ship, picture);
}

void DrawBulkheadsWith(const PictureOptions& options, const BulkheadLayout& layout,
                       Figure& figure) {
    DrawBulkheads(figure, layout, {});
    if (options.hasLegend) AddLegend(figure, LegendOf(layout, {}));
    if (options.hasScaleBar) AddScaleBar(figure);
}

bool TurnToNextBulkhead(PreviewPane& pane) {
    const size_t count = pane.bulkheads.bulkheads.size();
    if (!pane.areBulkheadsShown || count == 0) return false;
    pane.bulkhead = (pane.bulkhead + 1) % (count + 1);
    return true;
}

std::wstring BulkheadText(const PreviewPane& pane) {
    const auto count = static_cast<int32_t>(pane.bulkheads.bulkheads.size());
    if (pane.bulkhead == 0) return FormatMessage(kMsgAllBulkheads, {count});
    return FormatMessage(kMsgOneBulkhead, {static_cast<int32_t>(pane.bulkhead), count,
                                           pane.bulkheads.bulkheads[pane.bulkhead - 1].name});
}

std::wstring WhyNoPicture(SectionModel& section, const BasicShipData& bsd) {
    LibraryView view;
    MakeLibraryView(section, view);
    if (view.section.geometryPresent == 0) return GetMessage(kMsgNoPlating);
    return IsBsdDefined(bsd) ? std::wstring() : GetMessage(kMsgNoShipData);
}

std::wstring WhyNoPicture(ModelKind kind) {
    return kind == ModelKind::kTorsion ? GetMessage(kMsgTorsionLayout) : std::wstring();
}

// ---- The main window ---------------------------------------------------------------------------

void ShowInPreview(const ModelRow& row) {
    if (!shell.database.whyGone.empty()) return ClearPreviewPane(shell.database.whyGone);
    float x_m = 0;
    if (!ShowInPicture(row, x_m)) return ClearPreviewPane();
    shell.view.setPositionText(FormatMessage(kMsgPosition, {x_m}));
    shell.view.setFrameText(FrameText(x_m));
}

void ClearPreviewPane(const std::wstring& why) {
    ClearPicture(why);
    shell.view.setPositionText(L"");
    shell.view.setFrameText(L"");
}

void DrawPreview(Picture& picture) {
    DrawPane(shell.preview, OpenShip(), picture);
}

std::wstring ShownModelName() {
    const PreviewPane& pane = shell.preview;
    if (pane.areBulkheadsShown) return Trim(pane.bulkheads.name);
    return pane.isShown ? Trim(pane.section.name) : std::wstring();
}

BulkheadLayout LayOutShownBulkheads(double width_mm, double height_mm) {
    return LayOut(shell.preview, OpenShip(), width_mm, height_mm);
}

void ShowNextBulkhead() {
    if (!TurnToNextBulkhead(shell.preview)) return;
    shell.view.redrawPreview();
    ShowNote(BulkheadText(shell.preview));
}

std::wstring FrameText(float x_m) {
    const NearestFrameResult nearest = NearestFrame(shell.database.bsd, x_m);
    if (!nearest.found) return L"No frame in BSD";
    const std::wstring frame = std::to_wstring(nearest.frame);
    if (nearest.distance < kSamePosition_m) return L"Frame : " + frame;
    const bool isAft = x_m < FrameX(shell.database.bsd, nearest.frame);
    return L"Closer Frame : " + frame + L" (" +
           FormattedNumber(nearest.distance, GetMessage(kMsgFrameDistanceFormat)) + L" m)" +
           GetMessage(isAft ? kMsgAftOfFrame : kMsgForwardOfFrame);
}

}  // namespace corvane
