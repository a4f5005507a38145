#include "shell/window_place.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include "platform/system.h"
#include "shell/settings.h"

namespace corvane {
namespace {

// No texts of the catalogue: a catalogue other than ours does not know them.
constexpr char kSection[] = "Corvane window";

// The list's share is written as a whole number.
constexpr int kWholeShare = 10'000;

// What a window can have [pixels], and a screen [dots per inch].
constexpr int kFarthest = 100'000;
constexpr int kSmallest = 100;
constexpr int kLeastDpi = 48;
constexpr int kMostDpi = 960;

// As much of the title as the mouse needs [pixels].
constexpr int kTitleHeight = 24;
constexpr int kTitleWidth = 120;

int Read(const std::wstring& file, const char* key, int usual = 0) {
    return system::ReadProfileInteger(kSection, key, usual, file);
}

bool IsWithin(int value, int least, int most) {
    return least <= value && value <= most;
}

int OverlapOf(int begin, int end, int otherBegin, int otherEnd) {
    return std::max(0, std::min(end, otherEnd) - std::max(begin, otherBegin));
}

int64_t VisiblePixels(const ScreenArea& area, const ScreenArea& screen) {
    return int64_t{OverlapOf(area.left, area.right, screen.left, screen.right)} *
           OverlapOf(area.top, area.bottom, screen.top, screen.bottom);
}

bool IsTitleInReach(const ScreenArea& area, const ScreenArea& screen) {
    return OverlapOf(area.top, area.top + kTitleHeight, screen.top, screen.bottom) ==
               kTitleHeight &&
           OverlapOf(area.left, area.right, screen.left, screen.right) >= kTitleWidth;
}

}  // namespace

WindowPlace ReadWindowPlace(const std::wstring& file) {
    WindowPlace place;
    const int left = Read(file, "Left");
    const int top = Read(file, "Top");
    const int width = Read(file, "Width");
    const int height = Read(file, "Height");
    place.isKnown = IsWithin(left, -kFarthest, kFarthest) && IsWithin(top, -kFarthest, kFarthest) &&
                    IsWithin(width, kSmallest, kFarthest) && IsWithin(height, kSmallest, kFarthest);
    if (place.isKnown) place.area = {left, top, left + width, top + height};
    const int dpi = Read(file, "Dpi", place.dpi);
    if (IsWithin(dpi, kLeastDpi, kMostDpi)) place.dpi = dpi;
    place.isMaximised = Read(file, "Maximised") == 1;
    const int share = Read(file, "ListShare");
    if (IsWithin(share, 1, kWholeShare - 1)) place.listShare = 1.0 * share / kWholeShare;
    place.isPreviewOn = Read(file, "Preview", 1) != 0;
    return place;
}

bool WriteWindowPlace(const std::wstring& file, const WindowPlace& place) {
    if (!place.isKnown) return true;
    const std::pair<const char*, int> values[] = {
        {"Left", place.area.left},
        {"Top", place.area.top},
        {"Width", place.area.Width()},
        {"Height", place.area.Height()},
        {"Dpi", place.dpi},
        {"Maximised", place.isMaximised ? 1 : 0},
        {"ListShare", static_cast<int>(std::lround(place.listShare * kWholeShare))},
        {"Preview", place.isPreviewOn ? 1 : 0},
    };
    return std::ranges::all_of(values, [&file](const auto& value) {
        return WriteIniText(kSection, value.first, std::to_string(value.second), file) ==
               system::kErrorNone;
    });
}

ScreenArea FitToScreens(const ScreenArea& area, std::span<const ScreenArea> screens) {
    if (screens.empty()) return area;
    const ScreenArea& screen = *std::ranges::max_element(
        screens, {}, [&area](const ScreenArea& one) { return VisiblePixels(area, one); });
    ScreenArea fitted = area;
    fitted.right = area.left + std::min(area.Width(), screen.Width());
    fitted.bottom = area.top + std::min(area.Height(), screen.Height());
    if (std::ranges::any_of(screens,
                            [&](const ScreenArea& one) { return IsTitleInReach(fitted, one); })) {
        return fitted;
    }
    const int left = std::clamp(fitted.left, screen.left, screen.right - fitted.Width());
    const int top = std::clamp(fitted.top, screen.top, screen.bottom - fitted.Height());
    return {left, top, left + fitted.Width(), top + fitted.Height()};
}

}  // namespace corvane
