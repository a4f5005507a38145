#include "ui/main_window/path_field.h"

#include <string>

#include "ui/base/controls.h"
#include "ui/base/dpi.h"

namespace corvane {
namespace {

bool IsTooLong(HWND field, HFONT font, const std::wstring& path) {
    RECT area{};
    SendMessageW(field, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&area));
    return TextSize(field, font, path).cx > area.right - area.left;
}

void PaintShortened(HWND field, HFONT font, std::wstring path) {
    PAINTSTRUCT paint{};
    const HDC dc = BeginPaint(field, &paint);
    RECT client{};
    GetClientRect(field, &client);
    const auto brush = reinterpret_cast<HBRUSH>(SendMessageW(GetParent(field), WM_CTLCOLORSTATIC,
                                                             reinterpret_cast<WPARAM>(dc),
                                                             reinterpret_cast<LPARAM>(field)));
    FillRect(dc, &client, brush);
    RECT area{};
    SendMessageW(field, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&area));
    const HGDIOBJ before = SelectObject(dc, font);
    if (!IsWindowEnabled(field)) SetTextColor(dc, GetSysColor(COLOR_GRAYTEXT));
    SetBkMode(dc, TRANSPARENT);
    DrawTextW(dc, path.data(), static_cast<int>(path.size()), &area,
              DT_SINGLELINE | DT_NOPREFIX | DT_PATH_ELLIPSIS);
    SelectObject(dc, before);
    EndPaint(field, &paint);
}

LRESULT CALLBACK PathFieldProcedure(HWND field, UINT message, WPARAM wParam, LPARAM lParam,
                                    UINT_PTR id, DWORD_PTR) {
    switch (message) {
        case WM_PAINT: {
            const auto font = reinterpret_cast<HFONT>(SendMessageW(field, WM_GETFONT, 0, 0));
            const std::wstring path = WindowText(field);
            if (GetFocus() == field || !IsTooLong(field, font, path)) break;
            PaintShortened(field, font, path);
            return 0;
        }
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
        case WM_SETTEXT:
        case WM_SIZE:
            InvalidateRect(field, nullptr, TRUE);
            break;
        case WM_NCDESTROY:
            RemoveWindowSubclass(field, PathFieldProcedure, id);
            break;
        default:
            break;
    }
    return DefSubclassProc(field, message, wParam, lParam);
}

}  // namespace

void MakePathField(HWND field) {
    SetWindowSubclass(field, PathFieldProcedure, 1, 0);
}

}  // namespace corvane
