#include "preview/figure_text.h"

namespace corvane {
namespace {

constexpr double kLetterWidth = 0.55;  // of its height
constexpr wchar_t kShortened[] = L"...";

}  // namespace

double TextWidth(const std::wstring& text, double height_mm) {
    return kLetterWidth * height_mm * static_cast<double>(text.size());
}

std::wstring FittingText(const std::wstring& text, double height_mm, double room_mm) {
    if (TextWidth(text, height_mm) <= room_mm) return text;
    std::wstring beginning = text;
    while (!beginning.empty() && TextWidth(beginning + kShortened, height_mm) > room_mm) {
        beginning.pop_back();
    }
    // Not half of a character that has two units in UTF-16.
    if (!beginning.empty() && (beginning.back() & 0xFC00) == 0xD800) beginning.pop_back();
    return beginning.empty() ? std::wstring() : beginning + kShortened;
}

}  // namespace corvane
