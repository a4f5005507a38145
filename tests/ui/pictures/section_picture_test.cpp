// PIC_Section: what the picture shows, keeps and loses.
#include "ui/pictures/section_picture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "shell/open_database.h"
#include "shell/state.h"
#include "tests/companions/section_builder.h"
#include "tests/shell/fake_view.h"
#include "tests/support/support.h"
#include "tests/support/win32/gui_objects.h"
#include "tests/ui/pictures/dark_colours.h"

namespace corvane {
namespace {

// A section of one deck at half the depth, over the whole breadth of 20 m.
SectionModel OneDeck() {
    SectionModel section;
    section.symmetryMode = 1;
    Panel panel;
    panel.nodes = {test::GivenNode(0, 5), test::GivenNode(10, 5)};
    section.panels.assign(1, panel);
    return section;
}

// A picture in a hidden window.
struct SectionPicture : testing::Test {
    test::FakeView keptState;
    HWND parent = nullptr;
    HWND picture = nullptr;
    std::vector<std::wstring> pointedAt;  // that the picture reported
    int markedCount = 0;                  // how often

    SectionPicture() {
        parent = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 400, 300, nullptr, nullptr,
                                 nullptr, nullptr);
        PictureContents contents;
        contents.draw = DrawPreview;
        contents.pane = &shell.preview;
        contents.onPointedAt = [this](const std::wstring& text) { pointedAt.push_back(text); };
        contents.onMarked = [this] { ++markedCount; };
        picture = CreateSectionPicture(parent, std::move(contents));
        SetWindowPos(picture, nullptr, 0, 0, 304, 204, SWP_NOZORDER | SWP_NOACTIVATE);
        for (const int item : {1, 3, 9}) shell.database.bsd.MainData(item) = 10;
        shell.database.bsd.MainData(2) = 20;
    }
    ~SectionPicture() override { DestroyWindow(parent); }

    void ShowDeck() {
        shell.preview.section = OneDeck();
        shell.preview.isShown = true;
        RedrawSectionPicture(picture);
    }
    // Number of pixels in the colour of plating that a repaint shows.
    int PlatingPixels() const {
        return CountPixels([](COLORREF colour) { return colour == RGB(0, 0, 255); });
    }
    // Number of pixels that are not empty ground.
    int InkedPixels() const {
        return CountPixels([](COLORREF colour) { return colour != GetSysColor(COLOR_WINDOW); });
    }
    std::wstring Caption() const {
        wchar_t text[200] = L"";
        GetWindowTextW(picture, text, 200);
        return text;
    }
    int CountPixels(bool (*isCounted)(COLORREF)) const {
        return static_cast<int>(std::ranges::count_if(Pixels(), isCounted));
    }
    // What a repaint shows, row by row.
    std::vector<COLORREF> Pixels() const {
        RECT client{};
        GetClientRect(picture, &client);
        const HDC screen = GetDC(picture);
        const HDC dc = CreateCompatibleDC(screen);
        const HBITMAP bitmap = CreateCompatibleBitmap(screen, client.right, client.bottom);
        const HGDIOBJ before = SelectObject(dc, bitmap);
        SendMessageW(picture, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
        std::vector<COLORREF> pixels;
        for (int y = 0; y < client.bottom; ++y) {
            for (int x = 0; x < client.right; ++x) pixels.push_back(GetPixel(dc, x, y));
        }
        SelectObject(dc, before);
        DeleteObject(bitmap);
        DeleteDC(dc);
        ReleaseDC(picture, screen);
        return pixels;
    }
};

TEST_F(SectionPicture, BeginsEmpty) {
    EXPECT_EQ(PlatingPixels(), 0);
}

TEST_F(SectionPicture, ShowsTheSectionInMemory) {
    ShowDeck();
    EXPECT_GT(PlatingPixels(), 300) << "two rows of pixels nearly across the picture";
}

TEST_F(SectionPicture, RepaintNeedsNeitherSectionNorLibrary) {
    ShowDeck();
    const int shown = PlatingPixels();
    shell.preview.isShown = false;
    shell.preview.section = {};
    EXPECT_EQ(PlatingPixels(), shown);
}

TEST_F(SectionPicture, KeepsItsContentsWhenTheBsdIsNotDefined) {
    ShowDeck();
    const int shown = PlatingPixels();
    shell.database.bsd.MainData(9) = 0;
    shell.preview.section = {};
    RedrawSectionPicture(picture);
    EXPECT_EQ(PlatingPixels(), shown);
}

TEST_F(SectionPicture, ClearingEmptiesIt) {
    ShowDeck();
    ClearSectionPicture(picture);
    EXPECT_EQ(PlatingPixels(), 0);
}

TEST_F(SectionPicture, EmptyPictureSaysWhy) {
    ShowDeck();
    ClearSectionPicture(picture, L"This section has no plating to draw.");
    EXPECT_EQ(PlatingPixels(), 0);
    EXPECT_GT(InkedPixels(), 100);
    EXPECT_EQ(Caption(), L"This section has no plating to draw.");
    shell.preview.isShown = false;
    SetWindowPos(picture, nullptr, 0, 0, 154, 154, SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_GT(InkedPixels(), 100) << "at any size";
    SendMessageW(picture, WM_SYSCOLORCHANGE, 0, 0);
    EXPECT_GT(InkedPixels(), 100) << "in any colours";
    ClearSectionPicture(picture);
    EXPECT_EQ(InkedPixels(), 0);
    EXPECT_EQ(Caption(), L"Preview of the section");
}

TEST_F(SectionPicture, SectionTakesThePlaceOfTheText) {
    ClearSectionPicture(picture, L"none");
    ShowDeck();
    const int shown = InkedPixels();
    EXPECT_GT(PlatingPixels(), 300);
    EXPECT_EQ(Caption(), L"Preview of the section");
    ClearSectionPicture(picture);
    RedrawSectionPicture(picture);
    EXPECT_EQ(InkedPixels(), shown) << "nothing of the text is left";
}

TEST_F(SectionPicture, SectionIsOnWhitePaperWhereTheGroundIsDark) {
    const test::DarkColours dark;
    const auto whitePixels = [&] {
        return CountPixels([](COLORREF colour) { return colour == RGB(255, 255, 255); });
    };
    SendMessageW(picture, WM_SYSCOLORCHANGE, 0, 0);
    EXPECT_EQ(InkedPixels(), 0) << "an empty picture has the system's ground";
    ShowDeck();
    EXPECT_GT(PlatingPixels(), 300);
    EXPECT_GT(whitePixels(), 300 * 200 * 9 / 10);
    ClearSectionPicture(picture, L"none");
    EXPECT_EQ(whitePixels(), 0);
    EXPECT_GT(InkedPixels(), 10);
}

TEST_F(SectionPicture, DrawsAgainAtANewSize) {
    ShowDeck();
    const int before = PlatingPixels();
    SetWindowPos(picture, nullptr, 0, 0, 154, 104, SWP_NOZORDER | SWP_NOACTIVATE);
    const int after = PlatingPixels();
    EXPECT_GT(after, before / 3);
    EXPECT_LT(after, before * 2 / 3);
}

// Which columns and rows have plating: the deck's left end, its right end, its height.
struct DeckPlace {
    int left, right, top;
    bool operator==(const DeckPlace&) const = default;
};

struct MovedPicture : SectionPicture {
    MovedPicture() { ShowDeck(); }
    ~MovedPicture() override = default;

    DeckPlace Deck() const {
        RECT client{};
        GetClientRect(picture, &client);
        const HDC screen = GetDC(picture);
        const HDC dc = CreateCompatibleDC(screen);
        const HBITMAP bitmap = CreateCompatibleBitmap(screen, client.right, client.bottom);
        const HGDIOBJ before = SelectObject(dc, bitmap);
        SendMessageW(picture, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
        DeckPlace place{-1, -1, -1};
        for (int x = 0; x < client.right; ++x) {
            for (int y = 0; y < client.bottom; ++y) {
                if (GetPixel(dc, x, y) != RGB(0, 0, 255)) continue;
                if (place.left < 0) place = {x, x, y};
                place.right = x;
                break;
            }
        }
        SelectObject(dc, before);
        DeleteObject(bitmap);
        DeleteDC(dc);
        ReleaseDC(picture, screen);
        return place;
    }
    void Turn(int steps, POINT at) const {
        ClientToScreen(picture, &at);
        SendMessageW(picture, WM_MOUSEWHEEL,
                     static_cast<WPARAM>(static_cast<uint32_t>(steps * WHEEL_DELTA) << 16),
                     MAKELPARAM(at.x, at.y));
    }
    void Drag(POINT from, POINT to) const {
        SendMessageW(picture, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(from.x, from.y));
        SendMessageW(picture, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(to.x, to.y));
        SendMessageW(picture, WM_LBUTTONUP, 0, MAKELPARAM(to.x, to.y));
    }
    void Point(POINT at) const { SendMessageW(picture, WM_MOUSEMOVE, 0, MAKELPARAM(at.x, at.y)); }
    void Press(WPARAM key) const { SendMessageW(picture, WM_KEYDOWN, key, 0); }
};

TEST_F(MovedPicture, WheelZoomsAtThePointer) {
    const DeckPlace before = Deck();
    Turn(-3, {before.left, before.top});
    const DeckPlace smaller = Deck();
    EXPECT_NEAR(smaller.left, before.left, 1) << "what is under the pointer stays there";
    EXPECT_NEAR(smaller.top, before.top, 1);
    EXPECT_NEAR(smaller.right - smaller.left, (before.right - before.left) / (1.2 * 1.2 * 1.2), 2);
    Turn(3, {before.left, before.top});
    EXPECT_EQ(Deck(), before);
}

TEST_F(MovedPicture, WheelGoesAMillionTimesAndBackToTheSamePixels) {
    constexpr int kSteps = 76;
    const std::vector<COLORREF> fitted = Pixels();
    std::vector<POINT> ends{{Deck().right, Deck().top}};
    for (int i = 0; i < kSteps; ++i) {
        Turn(1, ends.back());
        const DeckPlace deck = Deck();
        ASSERT_NEAR(deck.right, ends.back().x, 1) << "the deck's end stays under the pointer";
        ASSERT_NEAR(deck.top, ends.back().y, 1);
        ends.push_back({deck.right, deck.top});
    }
    const DeckPlace large = Deck();
    EXPECT_EQ(large.left, 0) << "the deck reaches over the edge, and nothing is wrapped around";
    Drag({100, 100}, {140, 130});
    EXPECT_EQ(Deck().top, large.top + 30);
    Drag({140, 130}, {100, 100});
    EXPECT_EQ(Deck(), large);
    Point({10, large.top});
    Point({11, large.top});
    ASSERT_FALSE(pointedAt.empty());
    EXPECT_NE(pointedAt.back().find(L"Panel 1"), std::wstring::npos) << "the deck is there";
    Point({11, large.top + 20});
    EXPECT_EQ(pointedAt.back().find(L"Panel"), std::wstring::npos);
    for (int i = kSteps; i > 0; --i) Turn(-1, ends[static_cast<size_t>(i) - 1]);
    EXPECT_EQ(Pixels(), fitted);
}

TEST_F(MovedPicture, DraggingMovesThePicture) {
    const DeckPlace before = Deck();
    Drag({100, 100}, {140, 70});
    const DeckPlace after = Deck();
    EXPECT_NEAR(after.left, before.left + 40, 1);
    EXPECT_NEAR(after.top, before.top - 30, 1);
}

TEST_F(MovedPicture, ClickAloneMovesNothing) {
    const DeckPlace before = Deck();
    Drag({100, 100}, {101, 101});
    EXPECT_EQ(Deck(), before);
}

TEST_F(MovedPicture, KeysMoveZoomAndFit) {
    const DeckPlace before = Deck();
    Press(VK_RIGHT);
    EXPECT_NEAR(Deck().right, before.right - 30, 1);
    Press(VK_LEFT);
    Press(VK_UP);
    EXPECT_NEAR(Deck().top, before.top + 20, 1);
    Press(VK_DOWN);
    Press(VK_SUBTRACT);
    EXPECT_NEAR(Deck().right - Deck().left, (before.right - before.left) / 1.2, 2);
    Press(VK_ADD);
    EXPECT_EQ(Deck(), before);
    Press(VK_OEM_MINUS);
    Press(VK_LEFT);
    Press(VK_HOME);
    EXPECT_EQ(Deck(), before);
}

TEST_F(MovedPicture, DoubleClickAndAnotherSectionShowAll) {
    const DeckPlace before = Deck();
    Turn(4, {50, 50});
    EXPECT_NE(Deck(), before);
    SendMessageW(picture, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(50, 50));
    EXPECT_EQ(Deck(), before);
    Turn(4, {50, 50});
    RedrawSectionPicture(picture);
    EXPECT_EQ(Deck(), before);
}

TEST_F(MovedPicture, ZoomIsKeptAtANewSize) {
    Turn(-2, {150, 100});
    const DeckPlace before = Deck();
    SetWindowPos(picture, nullptr, 0, 0, 404, 204, SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_NEAR(Deck().right - Deck().left, before.right - before.left, 1);
    EXPECT_NEAR(Deck().left, before.left + 50, 1) << "the middle stays the middle";
}

TEST_F(MovedPicture, EmptyPictureTakesNoInput) {
    ClearSectionPicture(picture, L"none");
    const int text = InkedPixels();
    Turn(5, {50, 50});
    Drag({10, 10}, {50, 50});
    Press(VK_ADD);
    Press(VK_HOME);
    EXPECT_EQ(InkedPixels(), text);
}

TEST_F(MovedPicture, ThousandZoomsAndMovesLeakNoObject) {
    const test::GuiObjects before = test::CountGuiObjects();
    for (int i = 0; i < 500; ++i) {
        Turn(i % 2 == 0 ? 3 : -3, {100, 100});
        Press(i % 2 == 0 ? VK_LEFT : VK_RIGHT);
    }
    EXPECT_EQ(test::CountGuiObjects(), before);
}

TEST_F(MovedPicture, OnlyAPointerThatMovesWithinThePictureDescribes) {
    Point({60, 60});
    Point({60, 60});
    EXPECT_TRUE(pointedAt.empty()) << "it lies there";
    Point({61, 60});
    ASSERT_EQ(pointedAt.size(), 1U);
    EXPECT_TRUE(pointedAt[0].starts_with(L"y ")) << pointedAt[0];
    SendMessageW(picture, WM_MOUSELEAVE, 0, 0);
    EXPECT_EQ(pointedAt.back(), L"");
    pointedAt.clear();
    Point({90, 90});
    EXPECT_TRUE(pointedAt.empty()) << "it has come from elsewhere";
    Point({90, 91});
    EXPECT_EQ(pointedAt.size(), 1U);
}

TEST_F(SectionPicture, PaintErasesNothingFirst) {
    EXPECT_EQ(SendMessageW(picture, WM_ERASEBKGND, 0, 0), TRUE);
    ShowDeck();
    EXPECT_FALSE(GetUpdateRect(picture, nullptr, TRUE)) << "hidden: nothing to paint";
}

TEST_F(SectionPicture, ThousandDrawingsLeakNoObject) {
    ShowDeck();
    const test::GuiObjects before = test::CountGuiObjects();
    for (int i = 0; i < 1000; ++i) {
        RedrawSectionPicture(picture);
        if (i % 100 == 0) ClearSectionPicture(picture);
    }
    EXPECT_EQ(test::CountGuiObjects(), before);
}

TEST_F(SectionPicture, ResizingLeaksNoObject) {
    ShowDeck();
    const test::GuiObjects before = test::CountGuiObjects();
    for (int i = 0; i < 100; ++i) {
        SetWindowPos(picture, nullptr, 0, 0, 100 + i, 120 + i, SWP_NOZORDER | SWP_NOACTIVATE);
    }
    EXPECT_EQ(test::CountGuiObjects(), before);
}

TEST_F(SectionPicture, EmptySizeDrawsNothingBad) {
    SetWindowPos(picture, nullptr, 0, 0, 0, 0, SWP_NOZORDER | SWP_NOACTIVATE);
    ShowDeck();
    ClearSectionPicture(picture);
    SetWindowPos(picture, nullptr, 0, 0, 304, 204, SWP_NOZORDER | SWP_NOACTIVATE);
    EXPECT_GT(PlatingPixels(), 300);
}

}  // namespace
}  // namespace corvane
