// Drawing with GDI. Whatever is made or selected goes again within the procedure that did it, so
// that each drawing releases its objects.
#include "companions/grvelk/drawing.h"

#include <climits>
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

// In short pieces: the system may first make one area of all that a call draws with a broad pen,
// which takes the longer the more lines there are already. The pen's ends are as round as its
// corners, so that the pieces meet as corners do.
void DrawBroadLine(HDC dc, const POINT* points, uint32_t count) {
    constexpr uint32_t kMostPoints = 64;
    while (count > kMostPoints) {
        Polyline(dc, points, kMostPoints);
        points += kMostPoints - 1;
        count -= kMostPoints - 1;
    }
    Polyline(dc, points, static_cast<int>(count));
}

void DrawBroadLines(HDC dc, const PixelLines& lines) {
    const POINT* points = Points(lines.points);
    for (size_t i = 0; i < lines.lineCount; ++i) {
        DrawBroadLine(dc, points, lines.counts[i]);
        points += lines.counts[i];
    }
}

void DrawLines(void* context, const PixelLines& lines, Pen pen) {
    const HDC dc = Device(context);
    const HPEN made = CreatePen(PS_SOLID, pen.width, static_cast<COLORREF>(pen.colour));
    if (made == nullptr) return;
    const HGDIOBJ before = SelectObject(dc, made);
    if (pen.width > 1) {
        DrawBroadLines(dc, lines);
    } else {
        PolyPolyline(dc, Points(lines.points), reinterpret_cast<const DWORD*>(lines.counts),
                     static_cast<DWORD>(lines.lineCount));
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
