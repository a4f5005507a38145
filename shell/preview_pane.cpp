#include "shell/preview_pane.h"

#include <algorithm>

#include "bsd/frames.h"
#include "database/listing.h"
#include "database/section_block.h"
#include "database/section_view.h"
#include "report/reporters.h"
#include "shell/model_list.h"
#include "shell/state.h"
#include "text/numbers.h"

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
    shell.view.clearPreview(why);
}

void ShowSection() {
    const std::wstring why = WhyNoPicture(shell.preview.section, shell.database.bsd);
    if (!why.empty()) return ClearPicture(why);
    shell.preview.isShown = true;
    shell.view.redrawPreview();
}

bool IsPreviewed(const ModelRow& row) {
    return row.hasOwnNumber && row.kind == ModelKind::kSection && shell.view.isPreviewOn();
}

// The position [m] of a model that has no picture. A number that does not lead to one model alone
// leads nowhere: the list's position is the row's own.
bool ReadPosition(const ModelRow& row, float& x_m) {
    x_m = row.x_m;
    return !row.hasOwnNumber || ReadModelPosition(shell.database.path, PlaceOf(row), x_m);
}

// Shows the model in the picture, as far as it can be shown there. False when it could not be read.
bool ShowInPicture(const ModelRow& row, float& x_m) {
    if (!IsPreviewed(row)) {
        const bool isSection = row.kind == ModelKind::kSection;
        ClearPicture(shell.view.isPreviewOn() && !isSection ? WhyNoPicture(row.kind) : L"");
        return ReadPosition(row, x_m);
    }
    SectionModel& section = shell.preview.section;
    if (!ReadSectionBlock(shell.database.path, PlaceOf(row), false, section)) return false;
    ShowSection();
    ResetMousePointer();
    x_m = section.x_m;
    return true;
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
