#include "ui/windows/layout.h"

#include <string>

#include "ui/windows/control_ids.h"
#include "ui/windows/dpi.h"
#include "ui/windows/list_view.h"

namespace corvane {
namespace {

// Distances in pixels at 96 dots per inch.
constexpr int kMargin = 11;
constexpr int kGap = 7;
constexpr int kButtonWidth = 80;
constexpr int kFieldPadding = 4;
// What a text field has above its text at any resolution: its edge and a pixel [pixels].
constexpr int kFieldTextTop = 3;
constexpr int kStatusPadding = 5;
constexpr int kPositionWidth = 200;
constexpr int kPreviewButtonWidth = 90;

// The window's client area as it is divided, from the top and from the bottom.
struct Divider {
    HWND window;
    HDWP moves;
    UINT dpi;

    int Length(int length) const { return Scaled(length, dpi); }
    void Place(int id, const RECT& area) {
        moves = DeferWindowPos(moves, GetDlgItem(window, id), nullptr, area.left, area.top,
                               area.right - area.left, area.bottom - area.top,
                               SWP_NOZORDER | SWP_NOACTIVATE);
    }
};

// The row with the path and the button; `area` becomes what is left below it.
void PlaceDatabaseRow(Divider& divider, RECT& area, SIZE label) {
    const int height = label.cy + divider.Length(kFieldPadding) + kFieldTextTop + 1;
    const int bottom = area.top + height;
    const int buttonLeft = area.right - divider.Length(kButtonWidth);
    const int labelTop = area.top + kFieldTextTop;
    const int fieldLeft = area.left + label.cx + divider.Length(kGap);
    divider.Place(LB_DataBase, {area.left, labelTop, area.left + label.cx, labelTop + label.cy});
    divider.Place(TX_DataBase, {fieldLeft, area.top, buttonLeft - divider.Length(kGap), bottom});
    divider.Place(Command1, {buttonLeft, area.top, area.right, bottom});
    area.top = bottom + divider.Length(kGap);
}

// The status line along the foot; `area` becomes what is left above it.
void PlaceStatusLine(Divider& divider, RECT& area, int textHeight) {
    const int top = area.bottom - textHeight - 2 * divider.Length(kStatusPadding);
    divider.Place(LN_Status, {area.left, top, area.right, top + 2});
    const int margin = divider.Length(kMargin);
    const int textTop = top + divider.Length(kStatusPadding) + 1;
    divider.Place(PAN_Help,
                  {area.left + margin, textTop, area.right - margin, textTop + textHeight});
    area.bottom = top;
}

// The labels that tell where the selected model lies; `area` becomes what is left above them.
void PlaceModelLabels(Divider& divider, RECT& area, int textHeight) {
    const int top = area.bottom - textHeight;
    const int frameLeft = area.left + divider.Length(kPositionWidth);
    divider.Place(LB_X, {area.left, top, frameLeft - divider.Length(kGap), area.bottom});
    divider.Place(LB_Frame, {frameLeft, top, area.right, area.bottom});
    area.bottom = top - divider.Length(kGap);
}

// The picture of the section in the right half, with its check box above; `area` becomes what is
// left of it.
void PlacePreview(Divider& divider, RECT& area, int textHeight) {
    const int left = area.left + (area.right - area.left) / 2 + divider.Length(kGap);
    const int top = area.top + textHeight + divider.Length(kGap);
    divider.Place(OP_Preview, {left, area.top, left + divider.Length(kPreviewButtonWidth),
                               area.top + textHeight + divider.Length(kFieldPadding)});
    divider.Place(PIC_Section, {left, top, area.right, area.bottom});
    area.right = left - divider.Length(kGap);
}

}  // namespace

void LayOutMainWindow(HWND window, HFONT font, UINT dpi) {
    std::wstring labelText = WindowText(GetDlgItem(window, LB_DataBase));
    std::erase(labelText, L'&');
    const SIZE label = TextSize(window, font, labelText);
    Divider divider{window, BeginDeferWindowPos(10), dpi};
    RECT area{};
    GetClientRect(window, &area);
    PlaceStatusLine(divider, area, label.cy);
    const int margin = divider.Length(kMargin);
    InflateRect(&area, -margin, -margin);
    PlaceDatabaseRow(divider, area, label);
    PlaceModelLabels(divider, area, label.cy);
    PlacePreview(divider, area, label.cy);
    divider.Place(LI_Sections, area);
    EndDeferWindowPos(divider.moves);
    FitNameColumn(GetDlgItem(window, LI_Sections));
}

}  // namespace corvane
