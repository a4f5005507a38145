#include "ui/pictures/page_picture.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "ui/pictures/figure_player.h"

namespace corvane {
namespace {

// Each pixel of the paper is the mean of so many across and down: lines and letters are thinner
// than a pixel.
constexpr int kFiner = 2;

// A bitmap that can be drawn on; the bitmap itself stays.
struct Canvas {
    HDC dc = CreateCompatibleDC(nullptr);
    HBITMAP bitmap;
    uint32_t* pixels = nullptr;  // row by row from the top; null: there is no memory
    HGDIOBJ before = nullptr;

    explicit Canvas(SIZE size) {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = size.cx;
        info.bmiHeader.biHeight = -size.cy;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        pixels = static_cast<uint32_t*>(bits);
        if (bitmap != nullptr) before = SelectObject(dc, bitmap);
    }
    ~Canvas() {
        if (before != nullptr) SelectObject(dc, before);
        DeleteDC(dc);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
};

// The mean of a square of pixels, whose upper left one is the first.
uint32_t MeanOf(const uint32_t* first, int stride) {
    constexpr uint32_t kCount = kFiner * kFiner;
    uint32_t red = 0, green = 0, blue = 0;
    for (int y = 0; y < kFiner; ++y) {
        for (int x = 0; x < kFiner; ++x) {
            const uint32_t pixel = first[y * stride + x];
            red += pixel >> 16 & 0xFF;
            green += pixel >> 8 & 0xFF;
            blue += pixel & 0xFF;
        }
    }
    return red / kCount << 16 | green / kCount << 8 | blue / kCount;
}

void Reduce(const uint32_t* fine, uint32_t* pixels, SIZE size) {
    const int stride = size.cx * kFiner;
    for (int y = 0; y < size.cy; ++y) {
        for (int x = 0; x < size.cx; ++x) {
            pixels[y * size.cx + x] = MeanOf(fine + (y * stride + x) * kFiner, stride);
        }
    }
}

// Null when there is no memory.
HBITMAP MakePaper(const Figure& page, SIZE size) {
    const SIZE fineSize{size.cx * kFiner, size.cy * kFiner};
    const Canvas fine(fineSize);
    const Canvas paper(size);
    if (fine.pixels != nullptr && paper.pixels != nullptr) {
        const RECT all{0, 0, fineSize.cx, fineSize.cy};
        FillRect(fine.dc, &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        PlayFigure({fine.dc, fineSize.cx / page.width_mm}, page);
        GdiFlush();
        Reduce(fine.pixels, paper.pixels, size);
    }
    if (fine.bitmap != nullptr) DeleteObject(fine.bitmap);
    return paper.bitmap;
}

// As large as the area lets it; at least a pixel.
SIZE SizeOfPaper(const Figure& page, const RECT& area, int around) {
    const double room = area.right - area.left - 2.0 * around;
    const double height = area.bottom - area.top - 2.0 * around;
    const double scale = std::min(room / page.width_mm, height / page.height_mm);
    const auto pixels = [scale](double mm) { return std::max(1L, std::lround(mm * scale)); };
    return {pixels(page.width_mm), pixels(page.height_mm)};
}

}  // namespace

void PagePicture::Forget() {
    if (paper_ != nullptr) DeleteObject(paper_);
    paper_ = nullptr;
}

void PagePicture::Draw(HDC dc, const RECT& area, int around, const Figure& page) {
    if (paper_ == nullptr) {
        size_ = SizeOfPaper(page, area, around);
        paper_ = MakePaper(page, size_);
    }
    const LONG left = (area.left + area.right - size_.cx) / 2;
    const LONG top = (area.top + area.bottom - size_.cy) / 2;
    const RECT paper{left, top, left + size_.cx, top + size_.cy};
    const int shadow = around / 3;
    RECT shade = paper;
    OffsetRect(&shade, shadow, shadow);
    const int saved = SaveDC(dc);
    const HDC source = CreateCompatibleDC(dc);
    const HGDIOBJ before = SelectObject(source, paper_);
    BitBlt(dc, left, top, size_.cx, size_.cy, source, 0, 0, SRCCOPY);
    SelectObject(source, before);
    DeleteDC(source);
    // What is around the paper is painted once, so that nothing flickers.
    ExcludeClipRect(dc, paper.left, paper.top, paper.right, paper.bottom);
    FillRect(dc, &shade, GetSysColorBrush(COLOR_3DDKSHADOW));
    ExcludeClipRect(dc, shade.left, shade.top, shade.right, shade.bottom);
    FillRect(dc, &area, GetSysColorBrush(COLOR_APPWORKSPACE));
    RestoreDC(dc, saved);
}

}  // namespace corvane
