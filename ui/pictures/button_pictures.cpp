#include "ui/pictures/button_pictures.h"

#include <cmath>
#include <functional>
#include <numbers>
#include <vector>

#include "ui/base/dpi.h"
#include "ui/pictures/list_icons.h"

namespace corvane {
namespace {

// Width and height of a picture: units, and pixels at 96 dots per inch.
constexpr int kUnits = 32;
// Between the picture and the button's edge [pixels at 96 dots per inch].
constexpr int kMargin = 5;

constexpr COLORREF kWood = RGB(214, 137, 16);
constexpr COLORREF kLead = RGB(64, 64, 64);
constexpr COLORREF kQuorMark = RGB(16, 124, 16);
constexpr COLORREF kCsrMark = RGB(136, 23, 152);
constexpr COLORREF kMilMark = RGB(90, 98, 104);
constexpr COLORREF kHull = RGB(0, 84, 153);
constexpr COLORREF kWater = RGB(64, 150, 200);

// How a colour shows on a button that is enabled or not.
struct Ink {
    bool highContrast;
    bool enabled;

    COLORREF Of(COLORREF colour) const {
        if (highContrast) return GetSysColor(enabled ? COLOR_BTNTEXT : COLOR_GRAYTEXT);
        if (enabled) return colour;
        const int grey = (30 * GetRValue(colour) + 59 * GetGValue(colour) + 11 * GetBValue(colour));
        const int pale = 140 + grey / 400;
        return RGB(pale, pale, pale);
    }
};

bool IsHighContrast() {
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof(contrast);
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof(contrast), &contrast, 0) &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

// The kind's picture in the upper left three quarters.
void DrawKindBehind(DrawnPicture& picture, ModelKind kind, const Ink& ink) {
    const double scale = picture.scale;
    picture.scale = scale * 26 / kKindUnits;
    DrawKind(picture, kind, ink.Of(KindColour(kind, COLOR_BTNFACE, COLOR_BTNTEXT)));
    picture.scale = scale;
}

// A shape in front of the picture, with a gap around it.
void FillInFront(DrawnPicture& picture, std::vector<PicturePoint> outline, COLORREF colour) {
    Fill(picture, outline, kErase);
    outline.push_back(outline.front());
    Stroke(picture, outline, 3, kErase);
    Fill(picture, outline, colour);
}

void DrawEdit(DrawnPicture& picture, ModelKind kind, const Ink& ink) {
    DrawKindBehind(picture, kind, ink);
    FillInFront(picture, {{14.5, 30.5}, {16, 24.5}, {26.5, 14}, {31, 18.5}, {20.5, 29}},
                ink.Of(kWood));
    const PicturePoint tip[] = {{14.5, 30.5}, {15.5, 26.5}, {18.5, 29.5}};
    Fill(picture, tip, ink.Of(kLead));
    const PicturePoint band[] = {{24, 16.5}, {28.5, 21}};
    Stroke(picture, band, 1, kErase);
}

// The mark of a rule set is around the point (22, 22).
std::vector<PicturePoint> MarkOutline(RuleSet ruleSet) {
    if (ruleSet == RuleSet::kCsr) return {{14, 14}, {31, 14}, {31, 31}, {14, 31}};
    if (ruleSet == RuleSet::kMil) {
        return {{13.5, 14}, {22.5, 12},   {31.5, 14}, {31, 23},
                {28, 28},   {22.5, 31.5}, {17, 28},   {14, 23}};
    }
    std::vector<PicturePoint> disc;
    for (int degrees = 0; degrees < 360; degrees += 10) {
        const double angle = degrees * std::numbers::pi / 180;
        disc.push_back({22.5 + 9 * std::cos(angle), 22.5 + 9 * std::sin(angle)});
    }
    return disc;
}

COLORREF MarkColour(RuleSet ruleSet) {
    if (ruleSet == RuleSet::kCsr) return kCsrMark;
    return ruleSet == RuleSet::kMil ? kMilMark : kQuorMark;
}

void DrawRule(DrawnPicture& picture, ModelKind kind, RuleSet ruleSet, const Ink& ink) {
    DrawKindBehind(picture, kind, ink);
    FillInFront(picture, MarkOutline(ruleSet), ink.Of(MarkColour(ruleSet)));
    const PicturePoint check[] = {{18, 22.5}, {21.5, 26}, {27, 19}};
    Stroke(picture, check, 2.2, kErase);
}

// The side of a ship on the water, with the line of a dimension below.
void DrawShip(DrawnPicture& picture, const Ink& ink) {
    const PicturePoint hull[] = {{1.5, 13}, {31, 11}, {27.5, 21}, {4, 21}};
    const PicturePoint house[] = {{4, 13}, {4, 5}, {10, 5}, {10, 13}};
    const PicturePoint funnel[] = {{5.5, 5}, {5.5, 2}, {8, 2}, {8, 5}};
    const PicturePoint mast[] = {{20, 12}, {20, 5}};
    for (const auto& part :
         {std::span<const PicturePoint>(hull), std::span<const PicturePoint>(house),
          std::span<const PicturePoint>(funnel)}) {
        Fill(picture, part, ink.Of(kHull));
    }
    Stroke(picture, mast, 1.4, ink.Of(kHull));
    const PicturePoint windows[] = {{5.5, 8.5}, {8.5, 8.5}};
    Stroke(picture, windows, 1.4, kErase);
    const PicturePoint line[] = {{2, 27.5}, {30, 27.5}};
    const PicturePoint aft[] = {{5, 25}, {2, 27.5}, {5, 30}};
    const PicturePoint fore[] = {{27, 25}, {30, 27.5}, {27, 30}};
    Stroke(picture, line, 1.4, ink.Of(kWater));
    Stroke(picture, aft, 1.4, ink.Of(kWater));
    Stroke(picture, fore, 1.4, ink.Of(kWater));
}

// A list of the picture for each state of a button; the fourth is the disabled one.
HIMAGELIST CreateStates(int size, const std::function<void(DrawnPicture&, const Ink&)>& draw) {
    constexpr int kStates = 6;
    constexpr int kDisabled = 3;
    const HIMAGELIST pictures = ImageList_Create(size, size, ILC_COLOR32 | ILC_MASK, kStates, 0);
    const bool highContrast = IsHighContrast();
    DrawnPicture enabled = NewPicture(size, kUnits);
    draw(enabled, {highContrast, true});
    DrawnPicture disabled = NewPicture(size, kUnits);
    draw(disabled, {highContrast, false});
    for (int i = 0; i < kStates; ++i) AddPicture(pictures, i == kDisabled ? disabled : enabled);
    return pictures;
}

HIMAGELIST PictureOf(HWND button) {
    BUTTON_IMAGELIST shown{};
    const LRESULT done =
        SendMessageW(button, BCM_GETIMAGELIST, 0, reinterpret_cast<LPARAM>(&shown));
    return done != 0 ? shown.himl : nullptr;
}

// A button of before version 6 of the common controls shows its caption alone.
void Show(HWND button, UINT dpi, const std::function<void(DrawnPicture&, const Ink&)>& draw) {
    const HIMAGELIST before = PictureOf(button);
    const int margin = Scaled(kMargin, dpi);
    BUTTON_IMAGELIST picture{};
    picture.himl = CreateStates(Scaled(kUnits, dpi), draw);
    picture.margin = {margin, 0, 0, 0};
    picture.uAlign = BUTTON_IMAGELIST_ALIGN_LEFT;
    const LRESULT taken =
        SendMessageW(button, BCM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(&picture));
    if (before != nullptr) ImageList_Destroy(before);
    if (taken == 0) ImageList_Destroy(picture.himl);
    InvalidateRect(button, nullptr, TRUE);
}

}  // namespace

void ShowEditPicture(HWND button, ModelKind kind, UINT dpi) {
    Show(button, dpi,
         [kind](DrawnPicture& picture, const Ink& ink) { DrawEdit(picture, kind, ink); });
}

void ShowRulePicture(HWND button, ModelKind kind, RuleSet ruleSet, UINT dpi) {
    Show(button, dpi, [kind, ruleSet](DrawnPicture& picture, const Ink& ink) {
        DrawRule(picture, kind, ruleSet, ink);
    });
}

void ShowShipPicture(HWND button, UINT dpi) {
    Show(button, dpi, DrawShip);
}

void RemovePicture(HWND button) {
    const HIMAGELIST picture = PictureOf(button);
    if (picture != nullptr) ImageList_Destroy(picture);
}

}  // namespace corvane
