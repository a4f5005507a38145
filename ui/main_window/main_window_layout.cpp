#include "ui/main_window/main_window_layout.h"

#include <algorithm>
#include <string>

#include "ui/base/control_ids.h"
#include "ui/base/dpi.h"
#include "ui/main_window/model_list_view.h"
#include "ui/main_window/start_pane.h"
#include "ui/main_window/status_bar.h"
#include "ui/pictures/picture_table.h"

namespace corvane {
namespace {

// Distances in pixels at 96 dots per inch.
constexpr int kMargin = 11;
constexpr int kGap = 7;
constexpr int kOpenWidth = 80;
constexpr int kFieldPadding = 4;
// What a text field has above its text at any resolution: its edge and a pixel [pixels].
constexpr int kFieldTextTop = 3;
constexpr int kPositionWidth = 200;
constexpr int kPreviewButtonWidth = 90;
constexpr int kPictureButtonHeight = 44;
constexpr int kModelButtonWidth = 100;
constexpr int kBsdWidth = 130;
// An option's circle with the distance to its text.
constexpr int kOptionMark = 24;
constexpr int kLeastListWidth = 200;
constexpr int kLeastPreviewWidth = 140;
// The table beside the picture, and how broad a picture is that has room for it.
constexpr int kTableWidth = 250;
constexpr int kBroadPicture = 560;

// The window's client area as it is divided, from the top and from the bottom.
struct Divider {
    HWND window;
    HDWP moves;
    UINT dpi;
    HFONT font;

    int Length(int length) const { return Scaled(length, dpi); }
    HWND Control(int id) const { return GetDlgItem(window, id); }
    SIZE CaptionSize(int id) const {
        std::wstring text = WindowText(Control(id));
        std::erase(text, L'&');
        return TextSize(window, font, text);
    }
    // What the control showed at its old place is not moved along: copied pixels would bring what
    // lay over and under it there.
    void Place(int id, const RECT& area) {
        moves =
            DeferWindowPos(moves, Control(id), nullptr, area.left, area.top, area.right - area.left,
                           area.bottom - area.top, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
    }
};

// The row with the path and the button; `area` becomes what is left below it.
void PlaceDatabaseRow(Divider& divider, RECT& area) {
    const SIZE label = divider.CaptionSize(LB_DataBase);
    const int height = label.cy + divider.Length(kFieldPadding) + kFieldTextTop + 1;
    const int bottom = area.top + height;
    const int buttonLeft = area.right - divider.Length(kOpenWidth);
    const int labelTop = area.top + kFieldTextTop;
    const int fieldLeft = area.left + label.cx + divider.Length(kGap);
    divider.Place(LB_DataBase, {area.left, labelTop, area.left + label.cx, labelTop + label.cy});
    divider.Place(TX_DataBase, {fieldLeft, area.top, buttonLeft - divider.Length(kGap), bottom});
    divider.Place(Command1, {buttonLeft, area.top, area.right, bottom});
    area.top = bottom + divider.Length(kGap);
}

// Leaves of a group's window its caption and its frame: the options inside are the main window's.
void CutOutInside(HWND group, const RECT& place, int textHeight) {
    constexpr int kFrame = 3;
    const LONG width = place.right - place.left;
    const LONG height = place.bottom - place.top;
    const HRGN region = CreateRectRgn(0, 0, width, height);
    const HRGN inside = CreateRectRgn(kFrame, textHeight, width - kFrame, height - kFrame);
    CombineRgn(region, region, inside, RGN_DIFF);
    DeleteObject(inside);
    // The window owns the region.
    SetWindowRgn(group, region, FALSE);
}

// The rule sets side by side in their frame, whose upper line is at `row.top`. Returns its right
// edge.
int PlaceRuleSets(Divider& divider, const RECT& row, int textHeight) {
    const int top = row.top + textHeight / 2;
    const int height = textHeight + divider.Length(kFieldPadding);
    const int optionTop = top + (row.bottom - top - height) / 2;
    int left = row.left + divider.Length(kMargin);
    for (int i = 0; i < kRuleSetCount; ++i) {
        const int width = divider.Length(kOptionMark) + divider.CaptionSize(OP_Rule + i).cx;
        divider.Place(OP_Rule + i, {left, optionTop, left + width, optionTop + height});
        left += width + divider.Length(kMargin);
    }
    const RECT frame{row.left, row.top - textHeight / 2, left, row.bottom};
    divider.Place(GR_Rule, frame);
    CutOutInside(divider.Control(GR_Rule), frame, textHeight);
    return left;
}

int OpenLeft(const Layout& layout) {
    return layout.hasRuleButton ? layout.openLeft : (layout.openLeft + layout.ruleLeft) / 2;
}

// The buttons with pictures and the rule sets; `area` becomes what is left above them.
void PlaceButtonRow(Divider& divider, RECT& area, Layout& layout, int textHeight) {
    RECT row = area;
    row.top = row.bottom - divider.Length(kPictureButtonHeight);
    area.bottom = row.top - divider.Length(kMargin);
    const int width = divider.Length(kModelButtonWidth);
    layout.openLeft = row.left;
    layout.ruleLeft = row.left + width + divider.Length(kGap);
    const int left = OpenLeft(layout);
    divider.Place(BT_Open, {left, row.top, left + width, row.bottom});
    divider.Place(BT_Rule, {layout.ruleLeft, row.top, layout.ruleLeft + width, row.bottom});
    divider.Place(BT_Bsd, {row.right - divider.Length(kBsdWidth), row.top, row.right, row.bottom});
    row.left = layout.ruleLeft + width + divider.Length(kMargin);
    PlaceRuleSets(divider, row, textHeight);
}

// The labels that say where the selected model is; `area` becomes what is left above them.
void PlaceModelLabels(Divider& divider, RECT& area, int textHeight) {
    const int top = area.bottom - textHeight;
    const int frameLeft = area.left + divider.Length(kPositionWidth);
    divider.Place(LB_X, {area.left, top, frameLeft - divider.Length(kGap), area.bottom});
    divider.Place(LB_Frame, {frameLeft, top, area.right, area.bottom});
    area.bottom = top - divider.Length(kGap);
}

// Left and right end of the panes, and how far the splitter's left edge may go.
struct PaneRange {
    int left, right;
    int leastSplit, mostSplit;

    int SplitAt(double share) const {
        const int split = left + static_cast<int>(share * (right - left));
        return std::clamp(split, leastSplit, std::max(leastSplit, mostSplit));
    }
};

PaneRange PanesOf(HWND window, UINT dpi) {
    RECT client{};
    GetClientRect(window, &client);
    PaneRange panes{};
    panes.left = Scaled(kMargin, dpi);
    panes.right = client.right - panes.left;
    panes.leastSplit = panes.left + Scaled(kLeastListWidth, dpi);
    panes.mostSplit = panes.right - Scaled(kGap, dpi) - Scaled(kLeastPreviewWidth, dpi);
    return panes;
}

// The line above the list, while there is one, in as many rows as it needs; `area` becomes what is
// left below it.
void PlaceWhyGone(Divider& divider, RECT& area) {
    const HWND line = divider.Control(LB_WhyGone);
    if ((GetWindowLongPtrW(line, GWL_STYLE) & WS_VISIBLE) == 0) return;
    const LONG bottom = area.top + TextHeight(divider.window, divider.font, WindowText(line),
                                              area.right - area.left);
    divider.Place(LB_WhyGone, {area.left, area.top, area.right, bottom});
    area.top = bottom + divider.Length(kFieldPadding);
}

// From the top: the filter, what the list shows, the list, or what is in its place.
void PlaceListPane(Divider& divider, RECT area, const Layout& layout, int textHeight) {
    const int labelTop = area.top + kFieldTextTop;
    const int fieldLeft = area.left + divider.CaptionSize(LB_Filter).cx + divider.Length(kGap);
    const int fieldBottom = labelTop + textHeight + divider.Length(kFieldPadding) + 1;
    divider.Place(LB_Filter, {area.left, labelTop, fieldLeft, labelTop + textHeight});
    divider.Place(TX_Filter, {fieldLeft, area.top, area.right, fieldBottom});
    area.top = fieldBottom + divider.Length(kGap) / 2;
    const int countLeft = area.left + divider.CaptionSize(LB_Models).cx + divider.Length(kGap);
    divider.Place(LB_Models, {area.left, area.top, countLeft, area.top + textHeight});
    divider.Place(LB_Count, {countLeft, area.top, area.right, area.top + textHeight});
    area.top += textHeight + divider.Length(kFieldPadding) / 2;
    PlaceWhyGone(divider, area);
    divider.Place(LI_Sections, area);
    if (IsStartPaneShown(divider.window)) PlaceStartPane(divider.window, area, layout);
}

// Beside the picture where it is broad enough, else below it; `picture` becomes what is left.
void PlacePictureTable(Divider& divider, RECT& picture, int textHeight) {
    RECT table = picture;
    const LONG width = picture.right - picture.left;
    if (width >= divider.Length(kBroadPicture)) {
        table.left = picture.right - divider.Length(kTableWidth);
        picture.right = table.left - divider.Length(kGap);
    } else {
        const LONG height = (picture.bottom - picture.top) * 2 / 5;
        table.top = picture.bottom - height;
        picture.bottom = table.top - divider.Length(kGap);
    }
    divider.Place(LB_Facts, {table.left, table.top, table.right, table.top + textHeight});
    table.top += textHeight + divider.Length(kFieldPadding) / 2;
    divider.Place(TX_Facts, table);
}

// The picture with its head above.
void PlacePreviewPane(Divider& divider, const RECT& area, int textHeight) {
    const int headBottom = area.top + textHeight + divider.Length(kFieldPadding);
    const int top = headBottom + divider.Length(kFieldPadding) / 2;
    const int labelTop = area.top + divider.Length(kFieldPadding) / 2;
    divider.Place(OP_Preview, {area.left, area.top, area.left + divider.Length(kPreviewButtonWidth),
                               headBottom});
    const int legendLeft = area.left + divider.Length(kPreviewButtonWidth + kGap);
    divider.Place(LB_Legend, {legendLeft, labelTop, std::max<LONG>(legendLeft, area.right),
                              labelTop + textHeight});
    RECT picture{area.left, top, area.right, area.bottom};
    if (IsPictureTableShown(divider.window)) PlacePictureTable(divider, picture, textHeight);
    divider.Place(PIC_Section, picture);
}

// List and preview beside each other, and the splitter between them.
void PlacePanes(Divider& divider, const RECT& area, const Layout& layout, int textHeight) {
    const int split = PanesOf(divider.window, layout.dpi).SplitAt(layout.listShare);
    const int previewLeft = split + divider.Length(kGap);
    PlaceListPane(divider, {area.left, area.top, split, area.bottom}, layout, textHeight);
    const int top = area.top + textHeight + divider.Length(kFieldPadding) * 3 / 2;
    divider.Place(SP_Sections, {split, top, previewLeft, area.bottom});
    PlacePreviewPane(divider, {previewLeft, area.top, area.right, area.bottom}, textHeight);
}

}  // namespace

void LayOutMainWindow(HWND window, Layout& layout) {
    Divider divider{window, BeginDeferWindowPos(24), layout.dpi, layout.font};
    const int textHeight = divider.CaptionSize(LB_DataBase).cy;
    RECT area{};
    GetClientRect(window, &area);
    area.bottom -= PlaceStatusBar(window, textHeight, layout.dpi);
    const int margin = divider.Length(kMargin);
    InflateRect(&area, -margin, -margin);
    if (layout.isPreviewLarge) {
        PlaceModelLabels(divider, area, textHeight);
        PlacePreviewPane(divider, area, textHeight);
    } else {
        PlaceDatabaseRow(divider, area);
        PlaceButtonRow(divider, area, layout, textHeight);
        PlaceModelLabels(divider, area, textHeight);
        PlacePanes(divider, area, layout, textHeight);
    }
    EndDeferWindowPos(divider.moves);
    FitNameColumn(GetDlgItem(window, LI_Sections));
    // The gaps between the controls, and what one of them covered at its old place.
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void PlaceOpenButton(HWND window, const Layout& layout) {
    const HWND button = GetDlgItem(window, BT_Open);
    RECT place{};
    GetWindowRect(button, &place);
    MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&place), 2);
    SetWindowPos(button, nullptr, OpenLeft(layout), place.top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

double ListShareFor(HWND window, const Layout& layout, int splitterLeft) {
    const PaneRange panes = PanesOf(window, layout.dpi);
    const int split =
        std::clamp(splitterLeft, panes.leastSplit, std::max(panes.leastSplit, panes.mostSplit));
    // The middle of the pixel, so that the same pixel comes back.
    return (split - panes.left + 0.5) / (panes.right - panes.left);
}

}  // namespace corvane
