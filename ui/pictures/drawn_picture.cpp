#include "ui/pictures/drawn_picture.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace corvane {
namespace {

// Pixels that a shape can touch.
struct Box {
    int left, top, right, bottom;
};

Box BoxAround(const DrawnPicture& picture, std::span<const PicturePoint> points, double margin) {
    Box box{picture.size, picture.size, 0, 0};
    for (const PicturePoint& point : points) {
        const double x = picture.left + point.x * picture.scale;
        const double y = picture.top + point.y * picture.scale;
        const double around = margin * picture.scale + 1;
        box.left = std::min(box.left, static_cast<int>(std::floor(x - around)));
        box.top = std::min(box.top, static_cast<int>(std::floor(y - around)));
        box.right = std::max(box.right, static_cast<int>(std::ceil(x + around)));
        box.bottom = std::max(box.bottom, static_cast<int>(std::ceil(y + around)));
    }
    return {std::max(box.left, 0), std::max(box.top, 0), std::min(box.right, picture.size),
            std::min(box.bottom, picture.size)};
}

// Lays a colour over a pixel as far as the shape covers it.
void Lay(DrawnPicture::Pixel& pixel, COLORREF colour, float covered) {
    const float left = 1 - covered;
    const float laid = colour == kErase ? 0 : covered;
    pixel.red = pixel.red * left + laid * static_cast<float>(GetRValue(colour)) / 255;
    pixel.green = pixel.green * left + laid * static_cast<float>(GetGValue(colour)) / 255;
    pixel.blue = pixel.blue * left + laid * static_cast<float>(GetBValue(colour)) / 255;
    pixel.opacity = pixel.opacity * left + laid;
}

// Paints a shape within the box. `outside` says how far a point is from the shape's edge, in
// units, negative within; near the edge that is how far the shape covers the pixel.
template <class Outside>
void Paint(DrawnPicture& picture, const Box& box, COLORREF colour, Outside outside) {
    for (int y = box.top; y < box.bottom; ++y) {
        for (int x = box.left; x < box.right; ++x) {
            const PicturePoint middle{(x + 0.5 - picture.left) / picture.scale,
                                      (y + 0.5 - picture.top) / picture.scale};
            const double covered = std::clamp(0.5 - outside(middle) * picture.scale, 0.0, 1.0);
            if (covered <= 0) continue;
            Lay(picture.pixels[static_cast<size_t>(y) * picture.size + x], colour,
                static_cast<float>(covered));
        }
    }
}

// Of a point from a straight segment.
double SquaredDistance(PicturePoint p, PicturePoint a, PicturePoint b) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double length = dx * dx + dy * dy;
    const double t =
        length == 0 ? 0 : std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / length, 0.0, 1.0);
    const double offX = p.x - a.x - t * dx;
    const double offY = p.y - a.y - t * dy;
    return offX * offX + offY * offY;
}

double DistanceFromLine(PicturePoint p, std::span<const PicturePoint> points) {
    double squared = std::numeric_limits<double>::max();
    for (size_t i = 0; i + 1 < points.size(); ++i) {
        squared = std::min(squared, SquaredDistance(p, points[i], points[i + 1]));
    }
    return std::sqrt(squared);
}

// Whether a ray from the point to the right crosses the edge.
bool Crosses(PicturePoint p, PicturePoint a, PicturePoint b) {
    if ((a.y > p.y) == (b.y > p.y)) return false;
    return p.x < a.x + (p.y - a.y) * (b.x - a.x) / (b.y - a.y);
}

bool IsInside(PicturePoint p, std::span<const PicturePoint> outline) {
    bool inside = false;
    for (size_t i = 0; i < outline.size(); ++i) {
        if (Crosses(p, outline[i], outline[(i + 1) % outline.size()])) inside = !inside;
    }
    return inside;
}

uint32_t Byte(float share) {
    return static_cast<uint32_t>(std::lround(std::clamp(share, 0.0F, 1.0F) * 255));
}

// An icon has its colours whole beside the opacity.
uint32_t IconPixel(const DrawnPicture::Pixel& pixel) {
    if (pixel.opacity <= 0) return 0;
    return Byte(pixel.opacity) << 24 | Byte(pixel.red / pixel.opacity) << 16 |
           Byte(pixel.green / pixel.opacity) << 8 | Byte(pixel.blue / pixel.opacity);
}

// The picture at the left of a bitmap that is `width` pixels wide.
HBITMAP BitmapOf(const DrawnPicture& picture, int width) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -picture.size;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (bitmap == nullptr) return nullptr;
    auto* row = static_cast<uint32_t*>(bits);
    for (auto pixel = picture.pixels.begin(); pixel != picture.pixels.end();
         pixel += picture.size) {
        std::transform(pixel, pixel + picture.size, row, IconPixel);
        row += width;
    }
    return bitmap;
}

}  // namespace

DrawnPicture NewPicture(int size, int units) {
    DrawnPicture picture{};
    picture.size = size;
    picture.scale = static_cast<double>(size) / units;
    picture.pixels.resize(static_cast<size_t>(size) * size);
    return picture;
}

void Stroke(DrawnPicture& picture, std::span<const PicturePoint> points, double width,
            COLORREF colour) {
    Paint(picture, BoxAround(picture, points, width / 2), colour,
          [&](PicturePoint p) { return DistanceFromLine(p, points) - width / 2; });
}

void Fill(DrawnPicture& picture, std::span<const PicturePoint> outline, COLORREF colour) {
    Paint(picture, BoxAround(picture, outline, 0), colour, [&](PicturePoint p) {
        const PicturePoint closing[] = {outline.back(), outline.front()};
        const double distance =
            std::min(DistanceFromLine(p, outline), DistanceFromLine(p, closing));
        return IsInside(p, outline) ? -distance : distance;
    });
}

void AddPicture(HIMAGELIST icons, const DrawnPicture& picture) {
    int width = 0;
    int height = 0;
    ImageList_GetIconSize(icons, &width, &height);
    // The picture's opacity decides; the mask is only there because an icon has one.
    const std::vector<uint8_t> noMask(static_cast<size_t>(width) * height);
    ICONINFO parts{};
    parts.fIcon = TRUE;
    parts.hbmColor = BitmapOf(picture, width);
    parts.hbmMask = CreateBitmap(width, height, 1, 1, noMask.data());
    const HICON icon = CreateIconIndirect(&parts);
    ImageList_ReplaceIcon(icons, -1, icon);
    DestroyIcon(icon);
    DeleteObject(parts.hbmColor);
    DeleteObject(parts.hbmMask);
}

}  // namespace corvane
