// The pictures of the resources: every one in every size, and their colours.
#include "ui/pictures/icons.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <set>
#include <vector>

#include "tests/ui/pictures/dark_colours.h"

namespace corvane {
namespace {

constexpr int kSizes[] = {16, 20, 24, 32, 40, 48, 64, 96, 128, 256};

std::vector<PictureId> AllPictures() {
    std::vector<PictureId> all = {kProgramPicture, kShipPicture, kFolderPicture,
                                  kOpenFolderPicture};
    for (const KindFacts& facts : Kinds()) {
        all.push_back(KindPicture(facts.kind));
        all.push_back(EditPicture(facts.kind));
        for (const RuleSet ruleSet : {RuleSet::kQuor, RuleSet::kCsr, RuleSet::kMil}) {
            all.push_back(RulePicture(facts.kind, ruleSet));
        }
    }
    return all;
}

// The sides of the images that the resources have of a picture.
std::vector<int> SidesOf(PictureId id) {
    const HRSRC found = FindResourceW(nullptr, MAKEINTRESOURCEW(id), RT_GROUP_ICON);
    if (found == nullptr) return {};
    const auto* group = static_cast<const uint8_t*>(LockResource(LoadResource(nullptr, found)));
    // A head of six bytes, then 14 for each image, its width first; 0 means 256.
    std::vector<int> sides;
    for (int i = 0; i < group[4]; ++i) {
        const int width = group[6 + 14 * i];
        sides.push_back(width == 0 ? 256 : width);
    }
    return sides;
}

// The pixels 0xAARRGGBB of an icon.
std::vector<uint32_t> PixelsOf(HICON icon, int width, int height) {
    std::vector<uint32_t> pixels(static_cast<size_t>(width) * height);
    ICONINFO parts{};
    if (!GetIconInfo(icon, &parts)) return pixels;
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(info.bmiHeader), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    const HDC screen = GetDC(nullptr);
    GetDIBits(screen, parts.hbmColor, 0, static_cast<UINT>(height), pixels.data(), &info,
              DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    DeleteObject(parts.hbmColor);
    DeleteObject(parts.hbmMask);
    DestroyIcon(icon);
    return pixels;
}

// The colours of the opaque points of the first picture in a list, and how many there are.
struct Inked {
    std::set<uint32_t> colours;
    int count = 0;
};
Inked InkOf(HIMAGELIST pictures) {
    int width = 0;
    int height = 0;
    ImageList_GetIconSize(pictures, &width, &height);
    Inked inked;
    for (const uint32_t pixel :
         PixelsOf(ImageList_GetIcon(pictures, 0, ILD_TRANSPARENT), width, height)) {
        if (pixel >> 24 != 0xFF) continue;
        inked.colours.insert(pixel & 0xFFFFFF);
        ++inked.count;
    }
    return inked;
}

struct PictureList {
    HIMAGELIST handle = ImageList_Create(40, 32, ILC_COLOR32 | ILC_MASK, 1, 1);
    PictureList() = default;
    ~PictureList() { ImageList_Destroy(handle); }
    PictureList(const PictureList&) = delete;
    PictureList& operator=(const PictureList&) = delete;
};

TEST(Icons, EveryPictureIsThereInEverySize) {
    for (const PictureId id : AllPictures()) {
        EXPECT_EQ(SidesOf(id), std::vector<int>(std::begin(kSizes), std::end(kSizes))) << id;
    }
}

TEST(Icons, EveryPictureIsAnother) {
    std::set<std::vector<uint32_t>> seen;
    for (const PictureId id : AllPictures()) {
        const HICON icon = LoadPicture(id, 32);
        ASSERT_NE(icon, nullptr) << id;
        EXPECT_TRUE(seen.insert(PixelsOf(icon, 32, 32)).second) << id;
    }
}

TEST(Icons, PictureHasTheSizeThatWasAskedFor) {
    for (const int side : {16, 28, 32, 72, 96, 256}) {
        const HICON icon = LoadPicture(kProgramPicture, side);
        ICONINFO parts{};
        ASSERT_TRUE(GetIconInfo(icon, &parts)) << side;
        BITMAP bitmap{};
        GetObjectW(parts.hbmColor, sizeof bitmap, &bitmap);
        EXPECT_EQ(bitmap.bmWidth, side);
        EXPECT_EQ(bitmap.bmHeight, side);
        DeleteObject(parts.hbmColor);
        DeleteObject(parts.hbmMask);
        DestroyIcon(icon);
    }
}

TEST(Icons, PictureInOneColourIsAtTheLeftOfAWiderPlace) {
    const std::vector<uint32_t> pixels =
        PixelsOf(CreatePicture(KindPicture(ModelKind::kBulkhead), {40, 32}, RGB(1, 2, 3)), 40, 32);
    EXPECT_EQ(std::ranges::count(pixels, 0xFF010203U),
              std::ranges::count_if(pixels, [](uint32_t p) { return p >> 24 == 0xFF; }));
    int columns = 0;
    for (int x = 0; x < 40; ++x) {
        bool isInked = false;
        for (int y = 0; y < 32; ++y) isInked |= pixels[static_cast<size_t>(y) * 40 + x] >> 24 != 0;
        if (isInked) columns = x + 1;
    }
    EXPECT_GT(columns, 28);
    EXPECT_LE(columns, 32);
}

TEST(Icons, PicturesHaveTheColourOfTheTextOnADarkGround) {
    const PictureList light;
    AddListPicture(light.handle, EditPicture(ModelKind::kSection));
    const Inked before = InkOf(light.handle);
    EXPECT_GT(before.colours.size(), 2U) << "section, pencil, lead";
    const test::DarkColours dark;
    const PictureList list;
    AddListPicture(list.handle, EditPicture(ModelKind::kSection));
    const Inked after = InkOf(list.handle);
    EXPECT_EQ(after.colours, std::set<uint32_t>{0xFFFF00});
    EXPECT_EQ(after.count, before.count) << "the shape is the same";
}

TEST(Icons, WindowIconsFollowTheResolutionAndAreFreed) {
    const HWND window = CreateWindowExW(0, WC_STATICW, L"", WS_POPUP, 0, 0, 10, 10, nullptr,
                                        nullptr, nullptr, nullptr);
    const DWORD before = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    for (const UINT dpi : {96U, 144U, 288U}) {
        SetWindowIcons(window, dpi);
        for (const auto& [which, side] : {std::pair{ICON_SMALL, 16U}, {ICON_BIG, 32U}}) {
            const auto icon = reinterpret_cast<HICON>(
                SendMessageW(window, WM_GETICON, static_cast<WPARAM>(which), 0));
            ICONINFO parts{};
            ASSERT_TRUE(GetIconInfo(icon, &parts)) << dpi;
            BITMAP bitmap{};
            GetObjectW(parts.hbmColor, sizeof bitmap, &bitmap);
            EXPECT_EQ(bitmap.bmWidth, static_cast<LONG>(side * dpi / 96)) << dpi;
            DeleteObject(parts.hbmColor);
            DeleteObject(parts.hbmMask);
        }
    }
    RemoveWindowIcons(window);
    EXPECT_EQ(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS), before);
    DestroyWindow(window);
}

}  // namespace
}  // namespace corvane
