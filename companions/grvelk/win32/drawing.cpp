// Drawing with GDI. Whatever is made or selected goes again within the procedure that did it, so
// that each drawing releases its objects.
#include "companions/grvelk/drawing.h"

#include <climits>
#include <cmath>
#include <cstring>

#include "platform/win32/win32.h"

namespace corvane::grvelk {
namespace {

static_assert(sizeof(Pixel) == sizeof(POINT) && offsetof(Pixel, y) == offsetof(POINT, y));
static_assert(sizeof(uint32_t) == sizeof(DWORD));

const POINT* Points(const Pixel* pixels) {
    return reinterpret_cast<const POINT*>(pixels);
}

HDC Device(void* context) {
    return static_cast<HDC>(context);
}

void DrawThinLines(HDC dc, const PixelLines& lines) {
    PolyPolyline(dc, Points(lines.points), reinterpret_cast<const DWORD*>(lines.counts),
                 static_cast<DWORD>(lines.lineCount));
}

// Thin lines for each pixel of a round pen: of what a broad pen draws the system makes areas first,
// which takes many times longer.
void DrawBroadLines(HDC dc, const PixelLines& lines, int32_t width) {
    const double middle = (width - 1) / 2.0;
    POINT origin{};
    GetViewportOrgEx(dc, &origin);
    for (int32_t y = 0; y < width; ++y) {
        for (int32_t x = 0; x < width; ++x) {
            if (std::hypot(x - middle, y - middle) > width / 2.0) continue;
            SetViewportOrgEx(dc, origin.x + x - width / 2, origin.y + y - width / 2, nullptr);
            DrawThinLines(dc, lines);
        }
    }
    SetViewportOrgEx(dc, origin.x, origin.y, nullptr);
}

void DrawLines(void* context, const PixelLines& lines, Pen pen) {
    const HDC dc = Device(context);
    const HPEN made = CreatePen(PS_SOLID, 1, static_cast<COLORREF>(pen.colour));
    if (made == nullptr) return;
    const HGDIOBJ before = SelectObject(dc, made);
    if (pen.width > 1) {
        DrawBroadLines(dc, lines, pen.width);
    } else {
        DrawThinLines(dc, lines);
    }
    SelectObject(dc, before);
    DeleteObject(made);
}

void Fill(void* context, const Pixel* corners, size_t count, int32_t colour) {
    if (count > INT_MAX) return;
    const HDC dc = Device(context);
    SetDCBrushColor(dc, static_cast<COLORREF>(colour));
    Polygon(dc, Points(corners), static_cast<int>(count));
}

void DrawText(void* context, Pixel at, const char* text, int32_t colour) {
    const HDC dc = Device(context);
    const auto length = static_cast<int>(std::strlen(text));
    SIZE size{};
    GetTextExtentPoint32A(dc, text, length, &size);
    SetTextColor(dc, static_cast<COLORREF>(colour));
    TextOutA(dc, at.x - size.cx / 2, at.y - size.cy / 2, text, length);
}

bool FindFrame(HWND window, HDC dc, Drawing& drawing) {
    if (window != nullptr) {
        RECT client{};
        if (GetClientRect(window, &client) == FALSE) return false;
        drawing.width = client.right;
        drawing.height = client.bottom;
    } else {
        BITMAP bitmap{};
        if (GetObjectW(GetCurrentObject(dc, OBJ_BITMAP), sizeof(bitmap), &bitmap) == 0) {
            return false;
        }
        drawing.width = bitmap.bmWidth;
        drawing.height = bitmap.bmHeight;
    }
    return drawing.width > 0 && drawing.height > 0;
}

}  // namespace

bool OpenDrawing(WindowHandle window, DeviceHandle dc, Drawing& drawing) {
    const HDC device = Device(dc);
    if (device == nullptr || !FindFrame(static_cast<HWND>(window), device, drawing)) return false;
    if (SaveDC(device) == 0) return false;
    drawing.context = device;
    drawing.dotsPerInch = GetDeviceCaps(device, LOGPIXELSY);
    drawing.lines = DrawLines;
    drawing.fill = Fill;
    drawing.text = DrawText;
    SetMapMode(device, MM_TEXT);
    SetROP2(device, R2_COPYPEN);
    SetBkMode(device, TRANSPARENT);
    SetPolyFillMode(device, WINDING);
    SetTextAlign(device, TA_LEFT | TA_TOP);
    // An area itself has no edge; the plating is drawn over it.
    SelectObject(device, GetStockObject(NULL_PEN));
    SelectObject(device, GetStockObject(DC_BRUSH));
    return true;
}

void CloseDrawing(const Drawing& drawing) {
    RestoreDC(Device(drawing.context), -1);
}

}  // namespace corvane::grvelk
