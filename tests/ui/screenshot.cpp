#include "tests/ui/screenshot.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iostream>
#include <string>

namespace corvane::ui {
namespace {

// Colours of the preview.
constexpr uint32_t kPlating = 0x0000FF;
constexpr uint32_t kStiffeners = 0x008000;

BITMAPINFOHEADER HeaderOf(const Picture& picture) {
    BITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = picture.width;
    header.biHeight = -picture.height;
    header.biPlanes = 1;
    header.biBitCount = 32;
    header.biCompression = BI_RGB;
    return header;
}

}  // namespace

Picture CopyScreen(const RECT& area) {
    Picture picture;
    picture.width = static_cast<int>(area.right - area.left);
    picture.height = static_cast<int>(area.bottom - area.top);
    picture.pixels.resize(static_cast<size_t>(picture.width) * static_cast<size_t>(picture.height));
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, picture.width, picture.height);
    const HGDIOBJ old = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, picture.width, picture.height, screen, static_cast<int>(area.left),
           static_cast<int>(area.top), SRCCOPY);
    SelectObject(memory, old);
    BITMAPINFO information{};
    information.bmiHeader = HeaderOf(picture);
    GetDIBits(memory, bitmap, 0, static_cast<UINT>(picture.height), picture.pixels.data(),
              &information, DIB_RGB_COLORS);
    // The fourth byte of a pixel has no meaning; what it holds depends on the system.
    for (uint32_t& pixel : picture.pixels) pixel &= 0xFFFFFF;
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return picture;
}

bool ShowsASection(HWND preview) {
    RECT area{};
    GetWindowRect(preview, &area);
    const std::vector<uint32_t> pixels = CopyScreen(area).pixels;
    return std::ranges::count(pixels, kPlating) > 100 &&
           std::ranges::count(pixels, kStiffeners) > 20;
}

void KeepScreenshot() {
    // A test's first program shows the failure; what it started later may be gone.
    static const testing::TestInfo* kept = nullptr;
    const testing::TestInfo* const test = testing::UnitTest::GetInstance()->current_test_info();
    if (test == kept) return;
    kept = test;
    KeepPicture(CopyScreen({0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)}),
                "");
}

void KeepPicture(const Picture& picture, const std::string& title) {
    const auto bytes = static_cast<DWORD>(picture.pixels.size() * 4);
    const BITMAPINFOHEADER header = HeaderOf(picture);
    BITMAPFILEHEADER file{};
    file.bfType = 0x4D42;
    file.bfOffBits = sizeof file + sizeof header;
    file.bfSize = file.bfOffBits + bytes;
    const std::string name = std::string("failure_") +
                             testing::UnitTest::GetInstance()->current_test_info()->name() + title +
                             ".bmp";
    std::ofstream out(name, std::ios::binary);
    out.write(reinterpret_cast<const char*>(&file), sizeof file);
    out.write(reinterpret_cast<const char*>(&header), sizeof header);
    out.write(reinterpret_cast<const char*>(picture.pixels.data()),
              static_cast<std::streamsize>(bytes));
    std::cout << "A picture of the failure: " << name << "\n";
}

}  // namespace corvane::ui
