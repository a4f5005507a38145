#include "ui/pictures/file_icon.h"

#include <gtest/gtest.h>

#include "tests/support/support.h"

namespace corvane {
namespace {

using test::TemporaryFolder;
using test::WriteFileBytes;

void AppendLittleEndian(std::string& bytes, uint32_t value, int size) {
    for (int i = 0; i < size; ++i) bytes += static_cast<char>(value >> (8 * i));
}

// An icon file: one image of 32 by 32 opaque red points.
std::string RedIcon() {
    std::string bytes;
    for (const uint32_t word : {0, 1, 1}) AppendLittleEndian(bytes, word, 2);
    constexpr uint32_t kPoints = 32 * 32;
    constexpr uint32_t kImageSize = 40 + kPoints * 4 + kPoints / 8;
    AppendLittleEndian(bytes, 32 | 32 << 8, 4);
    AppendLittleEndian(bytes, 1 | 32 << 16, 4);
    AppendLittleEndian(bytes, kImageSize, 4);
    AppendLittleEndian(bytes, 22, 4);  // where the image begins
    for (const uint32_t word : {40, 32, 64, 1 | 32 << 16, 0, 0, 0, 0, 0, 0}) {
        AppendLittleEndian(bytes, word, 4);
    }
    for (uint32_t i = 0; i < kPoints; ++i) AppendLittleEndian(bytes, 0xFFFF0000, 4);
    return bytes + std::string(kPoints / 8, '\0');
}

struct Picture {
    HWND window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | SS_BITMAP, 0, 0, 60, 50, nullptr,
                                  nullptr, GetModuleHandleW(nullptr), nullptr);
    Picture() = default;
    ~Picture() {
        ClearFileIcon(window);
        DestroyWindow(window);
    }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    HBITMAP Bitmap() const {
        return reinterpret_cast<HBITMAP>(SendMessageW(window, STM_GETIMAGE, IMAGE_BITMAP, 0));
    }
    COLORREF PointAt(int x, int y) const {
        HDC dc = CreateCompatibleDC(nullptr);
        const HGDIOBJ before = SelectObject(dc, Bitmap());
        const COLORREF colour = GetPixel(dc, x, y);
        SelectObject(dc, before);
        DeleteDC(dc);
        return colour;
    }
};

TEST(ShowFileIcon, IconIsAtTheTopLeftOfAPictureOfTheControlsSize) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"red.ico");
    WriteFileBytes(path, RedIcon());
    const Picture picture;
    ShowFileIcon(path, picture.window);
    ASSERT_NE(picture.Bitmap(), nullptr);
    BITMAP size;
    GetObjectW(picture.Bitmap(), sizeof size, &size);
    EXPECT_EQ(size.bmWidth, 60);
    EXPECT_EQ(size.bmHeight, 50);
    EXPECT_EQ(picture.PointAt(0, 0), RGB(255, 0, 0));
    EXPECT_EQ(picture.PointAt(31, 31), RGB(255, 0, 0));
    EXPECT_EQ(picture.PointAt(32, 0), GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(picture.PointAt(59, 49), GetSysColor(COLOR_BTNFACE));
}

TEST(ShowFileIcon, NextIconTakesThePlaceAndTheOldPictureIsFreed) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"red.ico");
    WriteFileBytes(path, RedIcon());
    const Picture picture;
    ShowFileIcon(path, picture.window);
    HBITMAP first = picture.Bitmap();
    ShowFileIcon(path, picture.window);
    HBITMAP second = picture.Bitmap();
    EXPECT_NE(first, second);
    EXPECT_EQ(GetObjectType(first), 0U);
    ClearFileIcon(picture.window);
    EXPECT_EQ(picture.Bitmap(), nullptr);
    EXPECT_EQ(GetObjectType(second), 0U);
}

TEST(ShowFileIcon, FileWithoutAnIconChangesNothing) {
    const TemporaryFolder folder;
    WriteFileBytes(folder.File(L"text.txt"), "no icon in here");
    const Picture picture;
    ShowFileIcon(folder.File(L"text.txt"), picture.window);
    EXPECT_EQ(picture.Bitmap(), nullptr);
    ShowFileIcon(folder.File(L"none.ico"), picture.window);
    EXPECT_EQ(picture.Bitmap(), nullptr);
    ShowFileIcon(L"", picture.window);
    EXPECT_EQ(picture.Bitmap(), nullptr);
}

}  // namespace
}  // namespace corvane
