#include "shell/page_preview.h"

#include <algorithm>
#include <iterator>

#include "report/reporters.h"
#include "shell/state.h"

namespace corvane {
namespace {

void LayOutPage(PagePreview& preview) {
    SetBusyPointer();
    preview.shown = preview.job.makePage(preview.page, preview.paper);
    ResetMousePointer();
}

}  // namespace

Paper UsualPaper(bool isPortrait) {
    constexpr double kShort_mm = 210;
    constexpr double kLong_mm = 297;
    return isPortrait ? Paper{kShort_mm, kLong_mm, {}} : Paper{kLong_mm, kShort_mm, {}};
}

void TakePaper(PagePreview& preview) {
    preview.paper = preview.paperFor(shell.pages.isPortrait);
    LayOutPage(preview);
}

void ShowPage(PagePreview& preview, int page) {
    const int nearest = std::clamp(page, 1, preview.job.pageCount);
    if (nearest == preview.page) return;
    preview.page = nearest;
    LayOutPage(preview);
}

void ChooseScale(PagePreview& preview, size_t choice) {
    if (choice > std::size(kPageScales)) return;
    shell.pages.scale = choice == 0 ? 0 : kPageScales[choice - 1];
    LayOutPage(preview);
}

void ChoosePortrait(PagePreview& preview, bool isPortrait) {
    shell.pages.isPortrait = isPortrait;
    TakePaper(preview);
}

void SwitchTable(PagePreview& preview, bool isOn) {
    shell.preview.options.hasTable = isOn;
    shell.view.updateEnabling();
    LayOutPage(preview);
}

std::vector<std::wstring> ScaleChoices() {
    std::vector<std::wstring> choices{GetMessage(kMsgPageFits)};
    for (const int scale : kPageScales) {
        choices.push_back(FormatMessage(kMsgPageScaleOf, {int32_t{scale}}));
    }
    return choices;
}

size_t ScaleChoiceNow() {
    const auto* found = std::ranges::find(kPageScales, shell.pages.scale);
    return found == std::end(kPageScales) ? 0 : static_cast<size_t>(found - kPageScales) + 1;
}

bool HasPageBefore(const PagePreview& preview) {
    return preview.page > 1;
}

bool HasPageAfter(const PagePreview& preview) {
    return preview.page < preview.job.pageCount;
}

std::wstring PageText(const PagePreview& preview) {
    return FormatMessage(kMsgPageOf, {int32_t{preview.page}, int32_t{preview.job.pageCount}});
}

std::wstring PageScaleText(const PagePreview& preview) {
    if (!(preview.shown.scale > 0)) return GetMessage(kMsgPageIsEmpty);
    return FormatMessage(kMsgPageScaleNow, {preview.shown.scale});
}

std::wstring PageRemark(const PagePreview& preview) {
    return preview.shown.isCutOff ? GetMessage(kMsgPageCutOffAdvice) : std::wstring();
}

}  // namespace corvane
