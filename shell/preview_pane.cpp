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

// Shows the model in the picture, as far as it can be shown there, and returns its position [m].
float ShowInPicture(const ModelRow& row) {
    const bool isOn = shell.view.isPreviewOn();
    const bool isSection = row.kind == ModelKind::kSection;
    if (isOn && isSection &&
        ReadSectionBlock(shell.database.path, row.tag, false, shell.preview.section)) {
        ShowSection();
        ResetMousePointer();
        return shell.preview.section.x_m;
    }
    ClearPicture(isOn && !isSection ? WhyNoPicture(row.kind) : L"");
    return ModelPosition(shell.database.path, row.tag);
}

}  // namespace

void ShowInPreview(const ModelRow& row) {
    const float x_m = ShowInPicture(row);
    shell.view.setPositionText(FormatMessage(kMsgPosition, {x_m}));
    shell.view.setFrameText(FrameText(x_m));
}

void ClearPreviewPane() {
    ClearPicture(L"");
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
    return L"Closer Frame : " + frame + L" (" +
           FormattedNumber(nearest.distance, GetMessage(kMsgFrameDistanceFormat)) + L" m)";
}

}  // namespace corvane
