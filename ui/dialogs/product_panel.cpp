#include "ui/dialogs/product_panel.h"

#include <algorithm>

#include "ui/base/colours.h"
#include "ui/base/control_ids.h"
#include "ui/base/controls.h"
#include "ui/base/dpi.h"
#include "ui/dialogs/dialogs.h"
#include "ui/pictures/icons.h"

namespace corvane {
namespace {

// Lengths in pixels at 96 dots per inch.
constexpr int kPicture = 64;
constexpr int kPadding = 16;
constexpr int kGap = 8;

constexpr COLORREF kWarningColour = RGB(176, 0, 0);

void DeleteObjects(const ProductPanel& panel) {
    for (const HFONT font : {panel.titleFont, panel.versionFont, panel.warningFont}) {
        if (font != nullptr) DeleteObject(font);
    }
    if (panel.picture != nullptr) DestroyIcon(panel.picture);
}

void SetFont(HWND window, int id, HFONT font) {
    SendMessageW(GetDlgItem(window, id), WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

bool HasWarnings(HWND window) {
    return (GetWindowLongPtrW(GetDlgItem(window, LB_Warning1), GWL_STYLE) & WS_VISIBLE) != 0;
}

// Title and version, one below the other.
int TitleHeight(HWND window, UINT dpi) {
    return ControlTextSize(window, LB_Title).cy + Scaled(kGap, dpi) +
           ControlTextSize(window, LB_Version).cy;
}

// Places a label's line at the top of the area, which becomes what is left below it.
void PlaceLine(HWND window, int id, RECT& area) {
    PlaceOnTop(window, id, ControlTextSize(window, id).cy, area);
}

}  // namespace

ProductPanel::~ProductPanel() {
    DeleteObjects(*this);
}

void AddProductPanel(HWND window, const ProductTexts& texts) {
    const DWORD label = SS_CENTER | SS_NOPREFIX;
    const DWORD warning = label | (IsExperimental(texts.version) ? WS_VISIBLE : 0);
    AddControl(window, {PAN_Product, WC_STATICW, L"", WS_VISIBLE | SS_ETCHEDFRAME});
    AddControl(window, {IM_Velk, WC_STATICW, L"", WS_VISIBLE | SS_ICON | SS_REALSIZEIMAGE});
    AddControl(window, {LB_Title, WC_STATICW, texts.title, WS_VISIBLE | label});
    AddControl(window, {LB_Version, WC_STATICW, texts.versionLine, WS_VISIBLE | label});
    AddControl(window, {LB_32bits, WC_STATICW, L"32 bits", label});
    AddControl(window, {LB_Warning1, WC_STATICW, L"WARNING: Experimental version", warning});
    AddControl(window, {LB_Warning2, WC_STATICW, L"DO NOT USE FOR OFFICIAL CALCULATIONS", warning});
}

SIZE ScaleProductPanel(HWND window, ProductPanel& panel, UINT dpi) {
    const HFONT oldFonts[] = {panel.titleFont, panel.versionFont, panel.warningFont};
    const HICON oldPicture = panel.picture;
    panel.titleFont = CreateMessageFont(dpi, 220, FW_SEMIBOLD);
    panel.versionFont = CreateMessageFont(dpi);
    panel.warningFont = CreateMessageFont(dpi, 100, FW_BOLD);
    const int side = Scaled(kPicture, dpi);
    panel.picture = LoadPicture(kProgramPicture, side);
    SetFont(window, LB_Title, panel.titleFont);
    SetFont(window, LB_Version, panel.versionFont);
    SetFont(window, LB_Warning1, panel.warningFont);
    SetFont(window, LB_Warning2, panel.warningFont);
    SendMessageW(GetDlgItem(window, IM_Velk), STM_SETICON, reinterpret_cast<WPARAM>(panel.picture),
                 0);
    for (const HFONT font : oldFonts) {
        if (font != nullptr) DeleteObject(font);
    }
    if (oldPicture != nullptr) DestroyIcon(oldPicture);

    const SIZE title = ControlTextSize(window, LB_Title);
    const SIZE version = ControlTextSize(window, LB_Version);
    const SIZE warning = ControlTextSize(window, LB_Warning2);
    const int gap = Scaled(kGap, dpi);
    const int padding = 2 * Scaled(kPadding, dpi);
    const LONG besides = side + 2 * gap + std::max(title.cx, version.cx);
    const LONG warnings = HasWarnings(window) ? gap + 2 * warning.cy : 0;
    return {padding + std::max(besides, warning.cx),
            padding + std::max(side, TitleHeight(window, dpi)) + warnings};
}

void PlaceProductPanel(HWND window, const RECT& area, UINT dpi) {
    const int side = Scaled(kPicture, dpi);
    const int gap = Scaled(kGap, dpi);
    PlaceControl(window, PAN_Product, area);
    RECT rest = area;
    InflateRect(&rest, -Scaled(kPadding, dpi), -Scaled(kPadding, dpi));
    const int titleHeight = TitleHeight(window, dpi);
    const LONG bottom = rest.top + std::max(side, titleHeight);
    PlaceControl(window, IM_Velk, {rest.left, rest.top, rest.left + side, rest.top + side});
    RECT beside{rest.left + side + 2 * gap, rest.top + (bottom - rest.top - titleHeight) / 2,
                rest.right, bottom};
    PlaceLine(window, LB_Title, beside);
    beside.top += gap;
    PlaceLine(window, LB_Version, beside);
    rest.top = bottom + gap;
    PlaceLine(window, LB_Warning1, rest);
    PlaceLine(window, LB_Warning2, rest);
}

HBRUSH ColourProductLabel(HWND label, HDC dc, int background) {
    const int id = GetDlgCtrlID(label);
    const bool warning = id == LB_Warning1 || id == LB_Warning2;
    const bool isRed = warning && !NeedsSystemColours(background);
    const int text = background == COLOR_WINDOW ? COLOR_WINDOWTEXT : COLOR_BTNTEXT;
    SetTextColor(dc, isRed ? kWarningColour : GetSysColor(text));
    SetBkMode(dc, TRANSPARENT);
    return GetSysColorBrush(background);
}

}  // namespace corvane
