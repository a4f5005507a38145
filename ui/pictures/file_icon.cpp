#include "ui/pictures/file_icon.h"

#include <shellapi.h>

#include <algorithm>

#include "files/file_system.h"

namespace corvane {
namespace {

// The null handle, or one that is this small, means a file without icons.
bool IsIcon(HICON icon) {
    return reinterpret_cast<UINT_PTR>(icon) > 1;
}

// What a window answers with when it is asked for a drawing object.
template <class Handle>
Handle HandleIn(LRESULT answer) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): messages carry handles as numbers.
    return reinterpret_cast<Handle>(answer);
}

HBRUSH BackgroundOf(HWND picture, HDC dc) {
    const LRESULT brush =
        SendMessageW(GetParent(picture), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc),
                     reinterpret_cast<LPARAM>(picture));
    return brush != 0 ? HandleIn<HBRUSH>(brush) : GetSysColorBrush(COLOR_BTNFACE);
}

// A bitmap of the control's size with the icon at (0, 0); the caller owns it.
HBITMAP DrawnIcon(HWND picture, HICON icon) {
    RECT area;
    GetClientRect(picture, &area);
    HDC screen = GetDC(picture);
    HDC dc = CreateCompatibleDC(screen);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, std::max<LONG>(area.right, 1),
                                            std::max<LONG>(area.bottom, 1));
    const HGDIOBJ before = SelectObject(dc, bitmap);
    FillRect(dc, &area, BackgroundOf(picture, dc));
    DrawIcon(dc, 0, 0, icon);
    SelectObject(dc, before);
    DeleteDC(dc);
    ReleaseDC(picture, screen);
    return bitmap;
}

// Gives the control a bitmap and frees the one that it had.
void SetPicture(HWND picture, HBITMAP bitmap) {
    const LRESULT before =
        SendMessageW(picture, STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(bitmap));
    if (before != 0) DeleteObject(HandleIn<HGDIOBJ>(before));
    // A themed control may keep a copy; then ours is of no more use.
    const LRESULT kept = SendMessageW(picture, STM_GETIMAGE, IMAGE_BITMAP, 0);
    if (bitmap != nullptr && kept != reinterpret_cast<LRESULT>(bitmap)) DeleteObject(bitmap);
}

}  // namespace

void ShowFileIcon(const std::wstring& path, HWND picture) {
    if (!FileExists(path)) return;
    HICON icon = ExtractIconW(GetModuleHandleW(nullptr), path.c_str(), 0);
    if (!IsIcon(icon)) return;
    SetPicture(picture, DrawnIcon(picture, icon));
    DestroyIcon(icon);
    UpdateWindow(picture);
}

void ClearFileIcon(HWND picture) {
    SetPicture(picture, nullptr);
}

}  // namespace corvane
