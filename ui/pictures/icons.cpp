#include "ui/pictures/icons.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "ui/base/colours.h"
#include "ui/base/dpi.h"

namespace corvane {
namespace {

// What is in front of a kind, in tens of the picture's number.
enum Front { kNothing, kPencil, kFirstMark };

PictureId PictureWith(int front, ModelKind kind) {
    return static_cast<PictureId>(kFirstKindPicture + 10 * front + static_cast<int>(kind));
}

// Rows of pixels 0xAARRGGBB from the top.
struct Pixels {
    int width, height;
    std::vector<uint32_t> rows;
};

BITMAPINFO FormOf(const Pixels& pixels) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = pixels.width;
    info.bmiHeader.biHeight = -pixels.height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    return info;
}

Pixels PixelsOf(HICON icon, int side) {
    Pixels pixels{side, side, std::vector<uint32_t>(static_cast<size_t>(side) * side)};
    ICONINFO parts{};
    if (!GetIconInfo(icon, &parts)) return pixels;
    BITMAPINFO form = FormOf(pixels);
    const HDC screen = GetDC(nullptr);
    GetDIBits(screen, parts.hbmColor, 0, static_cast<UINT>(side), pixels.rows.data(), &form,
              DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    DeleteObject(parts.hbmColor);
    DeleteObject(parts.hbmMask);
    return pixels;
}

// The colours go, the shape stays.
void Paint(Pixels& pixels, COLORREF colour) {
    const uint32_t painted = static_cast<uint32_t>(GetRValue(colour)) << 16 |
                             static_cast<uint32_t>(GetGValue(colour)) << 8 | GetBValue(colour);
    for (uint32_t& pixel : pixels.rows) pixel = (pixel & 0xFF000000) | painted;
}

// The icon at the left of one that is `width` wide.
HICON IconOf(const Pixels& pixels, int width) {
    const Pixels whole{width, pixels.height, {}};
    const BITMAPINFO form = FormOf(whole);
    void* bits = nullptr;
    // The opacity decides; the mask is only there because an icon has one.
    const std::vector<uint8_t> noMask(static_cast<size_t>(width) * pixels.height);
    ICONINFO parts{};
    parts.fIcon = TRUE;
    parts.hbmColor = CreateDIBSection(nullptr, &form, DIB_RGB_COLORS, &bits, nullptr, 0);
    parts.hbmMask = CreateBitmap(width, pixels.height, 1, 1, noMask.data());
    auto* row = static_cast<uint32_t*>(bits);
    for (size_t from = 0; row != nullptr && from < pixels.rows.size(); from += pixels.width) {
        std::copy_n(pixels.rows.begin() + static_cast<ptrdiff_t>(from), pixels.width, row);
        row += width;
    }
    const HICON icon = CreateIconIndirect(&parts);
    DeleteObject(parts.hbmColor);
    DeleteObject(parts.hbmMask);
    return icon;
}

// Made smaller from the next larger one, where the system can.
HICON LoadFrom(HINSTANCE module, PCWSTR name, int side) {
    using ScaleDown = HRESULT WINAPI(HINSTANCE, PCWSTR, int, int, HICON*);
    const auto scaleDown = AsFunction<ScaleDown>(
        GetProcAddress(GetModuleHandleW(L"comctl32.dll"), "LoadIconWithScaleDown"));
    HICON icon = nullptr;
    if (scaleDown != nullptr) scaleDown(module, name, side, side, &icon);
    if (icon != nullptr) return icon;
    return static_cast<HICON>(LoadImageW(module, name, IMAGE_ICON, side, side, LR_DEFAULTCOLOR));
}

void SetIcon(HWND window, WPARAM which, HICON icon) {
    const LRESULT before = SendMessageW(window, WM_SETICON, which, reinterpret_cast<LPARAM>(icon));
    // NOLINTNEXTLINE(performance-no-int-to-ptr): messages carry handles as numbers.
    if (before != 0) DestroyIcon(reinterpret_cast<HICON>(before));
}

}  // namespace

PictureId KindPicture(ModelKind kind) {
    return PictureWith(kNothing, kind);
}

PictureId EditPicture(ModelKind kind) {
    return PictureWith(kPencil, kind);
}

PictureId RulePicture(ModelKind kind, RuleSet ruleSet) {
    return PictureWith(kFirstMark + static_cast<int>(ruleSet), kind);
}

HICON LoadPicture(int id, int side) {
    return LoadFrom(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id), side);
}

HICON LoadSystemPicture(PCWSTR name, int side) {
    return LoadFrom(nullptr, name, side);
}

void SetWindowIcons(HWND window, UINT dpi) {
    SetIcon(window, ICON_SMALL, LoadPicture(kProgramPicture, SystemMetric(SM_CXSMICON, dpi)));
    SetIcon(window, ICON_BIG, LoadPicture(kProgramPicture, SystemMetric(SM_CXICON, dpi)));
}

void RemoveWindowIcons(HWND window) {
    SetIcon(window, ICON_SMALL, nullptr);
    SetIcon(window, ICON_BIG, nullptr);
}

HICON CreatePicture(PictureId id, SIZE size, std::optional<COLORREF> colour) {
    const HICON loaded = LoadPicture(id, size.cy);
    if (loaded == nullptr) return nullptr;
    Pixels pixels = PixelsOf(loaded, size.cy);
    DestroyIcon(loaded);
    if (colour) Paint(pixels, *colour);
    return IconOf(pixels, size.cx);
}

void AddListPicture(HIMAGELIST pictures, PictureId id) {
    int width = 0;
    int height = 0;
    ImageList_GetIconSize(pictures, &width, &height);
    std::optional<COLORREF> colour;
    if (NeedsSystemColours(COLOR_WINDOW)) colour = GetSysColor(COLOR_WINDOWTEXT);
    const HICON icon = CreatePicture(id, {width, height}, colour);
    ImageList_ReplaceIcon(pictures, -1, icon);
    DestroyIcon(icon);
}

}  // namespace corvane
