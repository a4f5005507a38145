#include "shell/window_place.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "files/paths.h"
#include "platform/system.h"
#include "shell/start_up.h"
#include "shell/state.h"
#include "tests/shell/fake_view.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

// ---- On the screens that are there -------------------------------------------------------------

constexpr ScreenArea kMain{0, 0, 1920, 1040};
constexpr ScreenArea kLeft{-1280, 200, 0, 1224};
const std::vector<ScreenArea> kScreens = {kMain, kLeft};

ScreenArea At(int left, int top, int width = 900, int height = 700) {
    return {left, top, left + width, top + height};
}

TEST(FitToScreens, WindowWhoseTitleCanBeReachedStays) {
    for (const ScreenArea& area :
         {At(0, 0), At(500, 200), At(-900, 300), At(-400, 250), At(1800, 1016), At(-600, 100)}) {
        EXPECT_EQ(FitToScreens(area, kScreens), area) << area.left << ' ' << area.top;
    }
}

TEST(FitToScreens, WindowWhoseTitleCannotBeReachedComesToTheScreenThatShowsMostOfIt) {
    struct Case {
        ScreenArea area;
        ScreenArea fitted;
    };
    for (const Case& one : {Case{At(1850, 100), At(1020, 100)},     // too little at the right
                            Case{At(300, -50), At(300, 0)},         // the title is above
                            Case{At(300, 1030), At(300, 340)},      // and below
                            Case{At(-900, 150), At(-900, 200)}}) {  // above the left screen
        EXPECT_EQ(FitToScreens(one.area, kScreens), one.fitted) << one.area.left;
    }
}

TEST(FitToScreens, WindowOffAllScreensComesToTheMainOne) {
    EXPECT_EQ(FitToScreens(At(-4000, 0), kScreens), At(0, 0));
    EXPECT_EQ(FitToScreens(At(5000, 5000), kScreens), At(1020, 340));
    EXPECT_EQ(FitToScreens(At(-900, 300), {&kMain, 1}), At(0, 300)) << "its screen has gone";
}

TEST(FitToScreens, WindowIsNoLargerThanItsScreen) {
    EXPECT_EQ(FitToScreens(At(0, 0, 3000, 2000), kScreens), kMain);
    EXPECT_EQ(FitToScreens(At(-1280, 200, 1280, 4000), kScreens), kLeft);
    EXPECT_EQ(FitToScreens(At(5000, 5000, 3000, 2000), kScreens), kMain);
}

TEST(FitToScreens, WithoutScreensNothingIsDone) {
    EXPECT_EQ(FitToScreens(At(5, 6), {}), At(5, 6));
}

// ---- In the settings file ----------------------------------------------------------------------

struct WindowPlaceTest : testing::Test {
    test::FakeView view;
    test::FreshSettingsFile settings;
    test::KeepCurrentDirectory directory;

    static void Write(const char* key, const char* value) {
        system::WriteProfileText("Corvane window", key, value, kSettingsFile);
    }
    static void WriteArea(const char* left, const char* top, const char* width,
                          const char* height) {
        Write("Left", left);
        Write("Top", top);
        Write("Width", width);
        Write("Height", height);
    }
};

TEST_F(WindowPlaceTest, NothingIsKnownAtTheFirstStart) {
    const WindowPlace place = ReadWindowPlace(kSettingsFile);
    EXPECT_FALSE(place.isKnown);
    EXPECT_FALSE(place.isMaximised);
    EXPECT_EQ(place.listShare, 0);
    EXPECT_TRUE(place.isPreviewOn);
}

TEST_F(WindowPlaceTest, ShutDownWritesWhatTheNextStartReads) {
    shell.view.noteWindowPlace = [](WindowPlace& place) {
        place = {true, At(-300, 40), 144, true, 0.375, false};
    };
    ShutDown();
    const WindowPlace place = ReadWindowPlace(kSettingsFile);
    EXPECT_TRUE(place.isKnown);
    EXPECT_EQ(place.area, At(-300, 40));
    EXPECT_EQ(place.dpi, 144);
    EXPECT_TRUE(place.isMaximised);
    EXPECT_EQ(place.listShare, 0.375);
    EXPECT_FALSE(place.isPreviewOn);
}

TEST_F(WindowPlaceTest, ShutDownWithoutAWindowLeavesTheOldPlace) {
    WriteArea("1", "2", "300", "400");
    shell.windowPlace = ReadWindowPlace(kSettingsFile);
    ShutDown();
    EXPECT_EQ(ReadWindowPlace(kSettingsFile).area, At(1, 2, 300, 400));
}

TEST_F(WindowPlaceTest, NumbersThatNoWindowHasCountAsNone) {
    struct Case {
        const char *left, *top, *width, *height;
    };
    for (const Case& one :
         {Case{"0", "0", "0", "0"}, Case{"x", "y", "wide", "high"}, Case{"0", "0", "-900", "700"},
          Case{"0", "0", "900", "99"}, Case{"2147483647", "0", "2147483647", "700"},
          Case{"0", "-2147483648", "900", "700"}, Case{"", "", "", ""}}) {
        WriteArea(one.left, one.top, one.width, one.height);
        EXPECT_FALSE(ReadWindowPlace(kSettingsFile).isKnown) << one.left << ' ' << one.width;
    }
    WriteArea("0", "0", "900", "700");
    for (const char* const garbage : {"-1", "10000", "99999999", "half", "0"}) {
        Write("ListShare", garbage);
        EXPECT_EQ(ReadWindowPlace(kSettingsFile).listShare, 0) << garbage;
    }
    for (const char* const garbage : {"0", "-96", "100000", "fine"}) {
        Write("Dpi", garbage);
        EXPECT_EQ(ReadWindowPlace(kSettingsFile).dpi, 96) << garbage;
    }
    Write("Maximised", "maybe");
    Write("Version", "99");
    EXPECT_TRUE(ReadWindowPlace(kSettingsFile).isKnown);
    EXPECT_FALSE(ReadWindowPlace(kSettingsFile).isMaximised);
}

}  // namespace
}  // namespace corvane
