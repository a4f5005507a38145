#include "stand_ins/win32/form_layout.h"

#include <algorithm>

#include "stand_ins/win32/form_control_ids.h"
#include "ui/base/dpi.h"

namespace corvane::siblings {
namespace {

// Lengths in pixels at 96 dots per inch.
constexpr int kMargin = 12;
constexpr int kGap = 6;
constexpr int kSection = 12;  // between groups of controls
constexpr int kFieldWidth = 330;
constexpr int kNumberWidth = 90;
constexpr int kButtonWidth = 88;
constexpr int kButtonHeight = 26;
constexpr int kLinesShown = 5;
constexpr int kDropHeight = 300;

// The layout in the making: the next control's top, and the columns.
struct Sheet {
    HWND window;
    HFONT font;
    UINT dpi;
    int lineHeight;
    int top;
    int column;  // left edge of facts' values and of fields
    int right;
};

int Pixels(const Sheet& sheet, int length) {
    return Scaled(length, sheet.dpi);
}

void Place(const Sheet& sheet, int id, const RECT& area) {
    const HWND control = GetDlgItem(sheet.window, id);
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(sheet.font), FALSE);
    SetWindowPos(control, nullptr, area.left, area.top, area.right - area.left,
                 area.bottom - area.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

int WidthOf(const Sheet& sheet, int id) {
    return TextSize(sheet.window, sheet.font, WindowText(GetDlgItem(sheet.window, id))).cx;
}

// The widest of the labels in front of facts and fields.
int LabelWidth(const Sheet& sheet, const Form& form) {
    int width = 0;
    for (size_t i = 0; i < form.facts.size(); ++i) {
        width = std::max(width, WidthOf(sheet, kFactId + 2 * static_cast<int>(i)));
    }
    for (size_t i = 0; i < form.fields.size(); ++i) {
        width = std::max(width, WidthOf(sheet, kFieldLabelId + static_cast<int>(i)));
    }
    return width;
}

// The note takes as many lines as it needs.
void PlaceNote(Sheet& sheet) {
    RECT area{Pixels(sheet, kMargin), sheet.top, sheet.right, sheet.top};
    const std::wstring text = WindowText(GetDlgItem(sheet.window, kNoteId));
    const HDC dc = GetDC(sheet.window);
    const HGDIOBJ old = SelectObject(dc, sheet.font);
    RECT needed = area;
    DrawTextW(dc, text.c_str(), -1, &needed, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
    SelectObject(dc, old);
    ReleaseDC(sheet.window, dc);
    area.bottom = needed.bottom;
    Place(sheet, kNoteId, area);
    sheet.top = area.bottom + Pixels(sheet, kSection);
}

void PlaceFact(Sheet& sheet, int index) {
    const int id = kFactId + 2 * index;
    const int bottom = sheet.top + sheet.lineHeight;
    Place(sheet, id, {Pixels(sheet, kMargin), sheet.top, sheet.column, bottom});
    Place(sheet, id + 1, {sheet.column, sheet.top, sheet.right, bottom});
    sheet.top = bottom + Pixels(sheet, kGap) / 2;
}

void PlaceLine(Sheet& sheet) {
    sheet.top += Pixels(sheet, kGap);
    Place(sheet, kLineId, {Pixels(sheet, kMargin), sheet.top, sheet.right, sheet.top + 2});
    sheet.top += 2 + Pixels(sheet, kSection);
}

// Behind a short field; below a tall one, which takes all the room beside it.
void PlaceUnit(Sheet& sheet, const Field& field, int index, int left) {
    if (field.unit.empty()) return;
    const bool below = field.kind == FieldKind::kLines;
    const int top = below ? sheet.top + Pixels(sheet, kGap) / 2 : sheet.top;
    Place(sheet, kFieldUnitId + index,
          {below ? sheet.column : left, top, sheet.right, top + sheet.lineHeight});
    if (below) sheet.top = top + sheet.lineHeight;
}

void PlaceField(Sheet& sheet, const Field& field, int index) {
    // Of an edit control, above and below its text.
    const int edge = SystemMetric(SM_CYEDGE, sheet.dpi) + 2 * SystemMetric(SM_CYBORDER, sheet.dpi);
    const bool isNumber = field.kind == FieldKind::kNumber || field.kind == FieldKind::kInteger;
    const int lines = field.kind == FieldKind::kLines ? kLinesShown : 1;
    const int right = isNumber ? sheet.column + Pixels(sheet, kNumberWidth) : sheet.right;
    const int top = sheet.top;
    const int bottom = top + lines * sheet.lineHeight + 2 * edge;
    // The list that drops from a choice is part of its height.
    const int drop = field.kind == FieldKind::kChoice ? Pixels(sheet, kDropHeight) : 0;
    Place(sheet, kFieldId + index, {sheet.column, top, right, bottom + drop});
    sheet.top += edge;
    Place(sheet, kFieldLabelId + index,
          {Pixels(sheet, kMargin), sheet.top, sheet.column, sheet.top + sheet.lineHeight});
    if (lines > 1) sheet.top = bottom;
    PlaceUnit(sheet, field, index, right + Pixels(sheet, kGap));
    sheet.top = std::max(sheet.top, bottom) + Pixels(sheet, kGap);
}

// A line, the fields, and the status of Save. Without fields nothing is saved.
void PlaceFields(Sheet& sheet, const Form& form) {
    PlaceLine(sheet);
    for (size_t i = 0; i < form.fields.size(); ++i) {
        PlaceField(sheet, form.fields[i], static_cast<int>(i));
    }
    const int left = Pixels(sheet, kMargin);
    const int bottom = sheet.top + sheet.lineHeight;
    Place(sheet, kStatusId, {left, sheet.top, sheet.right, bottom});
    sheet.top = bottom;
}

// Close at the right; Save, where there is one, beside it.
void PlaceButtons(Sheet& sheet) {
    const int width = Pixels(sheet, kButtonWidth);
    const int bottom = sheet.top + Pixels(sheet, kButtonHeight);
    const int left = sheet.right - width;
    Place(sheet, IDCANCEL, {left, sheet.top, sheet.right, bottom});
    const int gap = Pixels(sheet, kGap);
    Place(sheet, IDOK, {left - gap - width, sheet.top, left - gap, bottom});
    sheet.top = bottom;
}

}  // namespace

SIZE LayOut(HWND window, const Form& form, HFONT font, UINT dpi) {
    Sheet sheet{window, font, dpi, TextSize(window, font, L"Ag").cy, 0, 0, 0};
    const int margin = Pixels(sheet, kMargin);
    sheet.column = margin + LabelWidth(sheet, form) + Pixels(sheet, kSection);
    sheet.right = sheet.column + Pixels(sheet, kFieldWidth);
    sheet.top = margin;
    PlaceNote(sheet);
    for (size_t i = 0; i < form.facts.size(); ++i) PlaceFact(sheet, static_cast<int>(i));
    if (!form.fields.empty()) PlaceFields(sheet, form);
    sheet.top += Pixels(sheet, kSection);
    PlaceButtons(sheet);
    return {sheet.right + margin, sheet.top + margin};
}

}  // namespace corvane::siblings
