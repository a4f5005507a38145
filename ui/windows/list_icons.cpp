#include "ui/windows/list_icons.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <span>
#include <vector>

#include "ui/windows/dpi.h"

namespace corvane {
namespace {

// A picture is drawn this many times larger and then averaged, which smooths its edges.
constexpr int kFiner = 8;
// The pictures are laid out on a square of this many units.
constexpr int kUnits = 16;

struct Point {
    double x, y;
};

// A picture in one colour: how much of each pixel is covered, 0 to 1, in rows from the top.
struct Coverage {
    int size;
    std::vector<float> pixels;
};

// Of a point from a straight segment.
double SquaredDistance(Point p, Point a, Point b) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double length = dx * dx + dy * dy;
    const double t =
        length == 0 ? 0 : std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / length, 0.0, 1.0);
    const double offX = p.x - a.x - t * dx;
    const double offY = p.y - a.y - t * dy;
    return offX * offX + offY * offY;
}

// Draws a line of `width` units through the points.
void Stroke(Coverage& picture, std::span<const Point> points, double width) {
    const int fine = picture.size * kFiner;
    const double unit = static_cast<double>(kUnits) / fine;
    std::vector<float> added(picture.pixels.size());
    for (int y = 0; y < fine; ++y) {
        for (int x = 0; x < fine; ++x) {
            const Point p{(x + 0.5) * unit, (y + 0.5) * unit};
            for (size_t i = 0; i + 1 < points.size(); ++i) {
                if (SquaredDistance(p, points[i], points[i + 1]) > width * width / 4) continue;
                const int place = (y / kFiner) * picture.size + x / kFiner;
                added[static_cast<size_t>(place)] += 1.0F / (kFiner * kFiner);
                break;
            }
        }
    }
    for (size_t i = 0; i < added.size(); ++i) {
        picture.pixels[i] = std::max(picture.pixels[i], added[i]);
    }
}

// Half of the ring in the middle, from one angle to the other [degrees], and its arrow head.
void StrokeTurn(Coverage& picture, int from, int to) {
    constexpr double kRadius = 5.2;
    const auto onRing = [](int degrees, double radius) {
        const double angle = degrees * std::numbers::pi / 180;
        return Point{kUnits / 2.0 + radius * std::cos(angle),
                     kUnits / 2.0 + radius * std::sin(angle)};
    };
    std::vector<Point> ring;
    for (int angle = from; angle <= to; angle += 10) ring.push_back(onRing(angle, kRadius));
    Stroke(picture, ring, 1.5);
    const Point head[] = {onRing(to - 28, kRadius + 2.6), onRing(to, kRadius),
                          onRing(to - 36, kRadius - 2.0)};
    Stroke(picture, head, 1.5);
}

// Shell and inner skin of a midship section.
Coverage SectionPicture(int size) {
    Coverage picture{size, std::vector<float>(static_cast<size_t>(size) * size)};
    const Point shell[] = {{1.5, 2.5},   {1.5, 11.5},  {3.5, 13.5},
                           {12.5, 13.5}, {14.5, 11.5}, {14.5, 2.5}};
    const Point innerSkin[] = {{1.5, 2.5},  {4.5, 2.5},  {4.5, 8.5},  {6.5, 10.5},
                               {9.5, 10.5}, {11.5, 8.5}, {11.5, 2.5}, {14.5, 2.5}};
    Stroke(picture, shell, 1.5);
    Stroke(picture, innerSkin, 1.0);
    return picture;
}

// A plate with its stiffeners.
Coverage BulkheadPicture(int size) {
    Coverage picture{size, std::vector<float>(static_cast<size_t>(size) * size)};
    const Point plate[] = {{1.5, 2.5}, {14.5, 2.5}, {14.5, 13.5}, {1.5, 13.5}, {1.5, 2.5}};
    Stroke(picture, plate, 1.5);
    for (const double x : {4.75, 8.0, 11.25}) {
        const Point stiffener[] = {{x, 2.5}, {x, 13.5}};
        Stroke(picture, stiffener, 1.0);
    }
    return picture;
}

// Two arrows that turn around the middle.
Coverage TorsionPicture(int size) {
    Coverage picture{size, std::vector<float>(static_cast<size_t>(size) * size)};
    StrokeTurn(picture, 190, 330);
    StrokeTurn(picture, 10, 150);
    return picture;
}

// A bitmap of the colour, as opaque as the pixels are covered.
HBITMAP Coloured(const Coverage& picture, COLORREF colour) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = picture.size;
    info.bmiHeader.biHeight = -picture.size;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (bitmap == nullptr) return nullptr;
    const uint32_t rgb = static_cast<uint32_t>(GetRValue(colour)) << 16 |
                         static_cast<uint32_t>(GetGValue(colour)) << 8 | GetBValue(colour);
    auto* pixel = static_cast<uint32_t*>(bits);
    for (const float coverage : picture.pixels) {
        *pixel++ = static_cast<uint32_t>(std::lround(coverage * 255)) << 24 | rgb;
    }
    return bitmap;
}

void AddPicture(HIMAGELIST icons, const Coverage& picture, COLORREF colour) {
    // The picture's opacity decides; the mask is only there because an icon has one.
    const std::vector<uint8_t> noMask(static_cast<size_t>(picture.size) * picture.size);
    ICONINFO parts{};
    parts.fIcon = TRUE;
    parts.hbmColor = Coloured(picture, colour);
    parts.hbmMask = CreateBitmap(picture.size, picture.size, 1, 1, noMask.data());
    const HICON icon = CreateIconIndirect(&parts);
    ImageList_ReplaceIcon(icons, -1, icon);
    DestroyIcon(icon);
    DeleteObject(parts.hbmColor);
    DeleteObject(parts.hbmMask);
}

}  // namespace

HIMAGELIST CreateKindIcons(UINT dpi) {
    const int size = SystemMetric(SM_CXSMICON, dpi);
    const HIMAGELIST icons = ImageList_Create(size, size, ILC_COLOR32 | ILC_MASK, 3, 0);
    AddPicture(icons, SectionPicture(size), RGB(0, 84, 153));
    AddPicture(icons, BulkheadPicture(size), RGB(153, 77, 0));
    AddPicture(icons, TorsionPicture(size), RGB(0, 115, 62));
    return icons;
}

}  // namespace corvane
