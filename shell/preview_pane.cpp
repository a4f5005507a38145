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

void ClearPicture(const std::wstring& why) {
    shell.preview.isShown = false;
    shell.preview.areBulkheadsShown = false;
    shell.view.clearPreview(why);
}

void ShowSection() {
    const std::wstring why = WhyNoPicture(shell.preview.section, shell.database.bsd);
    if (!why.empty()) return ClearPicture(why);
    shell.preview.isShown = true;
    shell.preview.areBulkheadsShown = false;
    shell.view.redrawPreview();
}

// ---- Bulkheads ---------------------------------------------------------------------------------

std::wstring WhyNoBulkheads() {
    constexpr double kAnySize_mm = 100;
    switch (LayOutShownBulkheads(kAnySize_mm, kAnySize_mm).why) {
        case WhyNoBulkhead::kNoBulkheads:
            return GetMessage(kMsgNoBulkheads);
        case WhyNoBulkhead::kNoOutline:
            return GetMessage(kMsgNoBulkheadOutline);
        case WhyNoBulkhead::kNone:
            break;
    }
    return {};
}

void ShowBulkheads() {
    PreviewPane& pane = shell.preview;
    pane.outline.reset();
    pane.bulkhead = 0;
    const std::wstring why = WhyNoBulkheads();
    if (!why.empty()) return ClearPicture(why);
    pane.isShown = false;
    pane.areBulkheadsShown = true;
    shell.view.redrawPreview();
}

void DrawBulkheadPane(Picture& picture) {
    const BulkheadLayout layout = LayOutShownBulkheads(WidthOf_mm(picture), HeightOf_mm(picture));
    const ShipBox& extent = layout.extent;
    FitPicture(picture, {(extent.left + extent.right) / 2, (extent.bottom + extent.top) / 2},
               layout.mmPerMetre);
    picture.clear(picture);
    if (!(picture.scaleWidth > 0)) return;
    Figure figure = SheetOver(picture);
    DrawBulkheads(figure, layout, {});
    if (shell.preview.options.hasLegend) AddLegend(figure, LegendOf(layout, {}));
    if (shell.preview.options.hasScaleBar) AddScaleBar(figure);
    picture.drawFigure(picture, figure);
}

bool IsPreviewed(const ModelRow& row) {
    const bool hasPicture = row.kind == ModelKind::kSection || row.kind == ModelKind::kBulkhead;
    return row.hasOwnNumber && hasPicture && shell.view.isPreviewOn();
}

// False when the model could not be read.
bool ReadAndShow(const ModelRow& row, float& x_m) {
    PreviewPane& pane = shell.preview;
    if (row.kind == ModelKind::kBulkhead) {
        if (!ReadBulkheadBlock(shell.database.path, PlaceOf(row), pane.bulkheads)) return false;
        ShowBulkheads();
        x_m = pane.bulkheads.x_m;
    } else {
        if (!ReadSectionBlock(shell.database.path, PlaceOf(row), false, pane.section)) return false;
        ShowSection();
        x_m = pane.section.x_m;
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
    const bool hasPicture = row.kind == ModelKind::kSection || row.kind == ModelKind::kBulkhead;
    ClearPicture(shell.view.isPreviewOn() && !hasPicture ? GetMessage(kMsgTorsionLayout) : L"");
    return ReadPosition(row, x_m);
}

}  // namespace

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

std::wstring WhyNoPicture(SectionModel& section, const BasicShipData& bsd) {
    LibraryView view;
    MakeLibraryView(section, view);
    if (view.section.geometryPresent == 0) return GetMessage(kMsgNoPlating);
    return IsBsdDefined(bsd) ? std::wstring() : GetMessage(kMsgNoShipData);
}

std::wstring WhyNoPicture(ModelKind kind) {
    return FormatMessage(kMsgNoPictureOfKind, {KindName(kind)});
}

void DrawSection(SectionModel& section, const BasicShipData& bsd, Picture& picture) {
    LibraryView view;
    MakeLibraryView(section, view);
    DrawSectionPreview(view.section, bsd, picture);
}

void DrawPreview(Picture& picture) {
    if (shell.preview.isShown) DrawSection(shell.preview.section, shell.database.bsd, picture);
    if (shell.preview.areBulkheadsShown) DrawBulkheadPane(picture);
}

std::wstring ShownModelName() {
    const PreviewPane& pane = shell.preview;
    if (pane.areBulkheadsShown) return Trim(pane.bulkheads.name);
    return pane.isShown ? Trim(pane.section.name) : std::wstring();
}

BulkheadLayout LayOutShownBulkheads(double width_mm, double height_mm) {
    PreviewPane& pane = shell.preview;
    const auto outline = [&pane] {
        if (!pane.outline) {
            pane.outline = OutlineAt(shell.database.path, shell.database.rows, shell.database.bsd,
                                     pane.bulkheads.x_m);
        }
        return *pane.outline;
    };
    return LayOutBulkheads({pane.bulkheads, outline, width_mm, height_mm, pane.bulkhead});
}

void ShowNextBulkhead() {
    PreviewPane& pane = shell.preview;
    const size_t count = pane.bulkheads.bulkheads.size();
    if (!pane.areBulkheadsShown || count == 0) return;
    pane.bulkhead = (pane.bulkhead + 1) % (count + 1);
    shell.view.redrawPreview();
    if (pane.bulkhead == 0) return ReportNote(kMsgAllBulkheads, {static_cast<int32_t>(count)});
    ReportNote(kMsgOneBulkhead, {static_cast<int32_t>(pane.bulkhead), static_cast<int32_t>(count),
                                 pane.bulkheads.bulkheads[pane.bulkhead - 1].name});
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
