#include "ui/pictures/figure_player.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace corvane {
namespace {

// What is selected into the device context, changed only where an item asks for another one.
class Tools {
public:
    explicit Tools(const FigureDevice& device) : device_(device), saved_(SaveDC(device.dc)) {
        SetBkMode(device.dc, TRANSPARENT);
        SelectObject(device.dc, GetStockObject(NULL_PEN));
    }
    ~Tools() {
        RestoreDC(device_.dc, saved_);
        DeleteTool(pen_);
        DeleteTool(brush_);
        DeleteTool(font_);
    }
    Tools(const Tools&) = delete;
    Tools& operator=(const Tools&) = delete;

    int Length(double length_mm) const {
        return static_cast<int>(std::lround(length_mm * device_.pixelsPerMm));
    }

    void SelectPen(int32_t colour, double width_mm) {
        const int width = std::max(1, Length(width_mm));
        if (pen_ != nullptr && colour == penColour_ && width == penWidth_) {
            SelectObject(device_.dc, pen_);
            return;
        }
        Replace(pen_, CreatePen(PS_SOLID, width, static_cast<COLORREF>(colour)));
        penColour_ = colour;
        penWidth_ = width;
    }
    void SelectBrush(int32_t colour) {
        SelectObject(device_.dc, GetStockObject(NULL_PEN));
        if (brush_ != nullptr && colour == brushColour_) return;
        Replace(brush_, CreateSolidBrush(static_cast<COLORREF>(colour)));
        brushColour_ = colour;
    }
    void SelectFont(double height_mm) {
        const int height = std::max(1, Length(height_mm));
        if (font_ != nullptr && height == fontHeight_) return;
        LOGFONTW description{};
        description.lfHeight = -height;
        description.lfWeight = FW_NORMAL;
        description.lfCharSet = DEFAULT_CHARSET;
        lstrcpynW(description.lfFaceName, device_.typeface, LF_FACESIZE);
        Replace(font_, CreateFontIndirectW(&description));
        fontHeight_ = height;
    }

private:
    static void DeleteTool(HGDIOBJ tool) {
        if (tool != nullptr) DeleteObject(tool);
    }
    void Replace(HGDIOBJ& tool, HGDIOBJ made) {
        SelectObject(device_.dc, made);
        DeleteTool(tool);
        tool = made;
    }

    const FigureDevice& device_;
    int saved_;
    HGDIOBJ pen_ = nullptr;
    HGDIOBJ brush_ = nullptr;
    HGDIOBJ font_ = nullptr;
    int32_t penColour_ = 0;
    int penWidth_ = 0;
    int32_t brushColour_ = 0;
    int fontHeight_ = 0;
};

POINT Pixel(const FigureDevice& device, SheetPoint point) {
    return {device.corner.x + static_cast<LONG>(std::lround(point.x * device.pixelsPerMm)),
            device.corner.y + static_cast<LONG>(std::lround(point.y * device.pixelsPerMm))};
}

// The font's place: `point` is at half the height of a capital.
void PlayText(const FigureDevice& device, const FigureItem& item, SheetPoint point,
              const std::wstring& text) {
    constexpr UINT kAlignments[] = {TA_LEFT, TA_CENTER, TA_RIGHT};
    SetTextAlign(device.dc, kAlignments[static_cast<int>(item.side)] | TA_BASELINE);
    SetTextColor(device.dc, static_cast<COLORREF>(item.colour));
    const POINT at = Pixel(device, {point.x, point.y + kCapitalHeight / 2 * item.size_mm});
    TextOutW(device.dc, at.x, at.y, text.c_str(), static_cast<int>(text.size()));
}

}  // namespace

void PlayFigure(const FigureDevice& device, const Figure& figure) {
    Tools tools(device);
    std::vector<POINT> pixels;
    for (const FigureItem& item : figure.items) {
        const std::span<const SheetPoint> points = PointsOf(figure, item);
        if (item.shape == FigureShape::kText) {
            tools.SelectFont(item.size_mm);
            PlayText(device, item, points.front(), figure.texts[item.text]);
            continue;
        }
        pixels.clear();
        for (const SheetPoint& point : points) pixels.push_back(Pixel(device, point));
        const int count = static_cast<int>(pixels.size());
        if (item.shape == FigureShape::kLine) {
            tools.SelectPen(item.colour, item.size_mm);
            Polyline(device.dc, pixels.data(), count);
        } else {
            tools.SelectBrush(item.colour);
            Polygon(device.dc, pixels.data(), count);
        }
    }
}

}  // namespace corvane
