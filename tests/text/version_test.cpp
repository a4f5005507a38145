#include "text/version.h"

#include <gtest/gtest.h>

#include "tests/support/support.h"

namespace corvane {
namespace {

TEST(VersionText, ZeroIsUnknown) {
    EXPECT_EQ(VersionText(0.0F), L"Unknown ver.");
    EXPECT_EQ(VersionText(-0.0F), L"Unknown ver.");
}

TEST(VersionText, OneToFourDigitsBehindThePoint) {
    EXPECT_EQ(VersionText(2.5F), L"2.5");
    EXPECT_EQ(VersionText(1.23456F), L"1.2346");
    EXPECT_EQ(VersionText(3.0F), L"3.0");
    EXPECT_EQ(VersionText(3.73F), L"3.73");
    EXPECT_EQ(VersionText(2.002F), L"2.002");
    EXPECT_EQ(VersionText(0.443F), L"0.443");
    EXPECT_EQ(VersionText(12.0F), L"12.0");
    EXPECT_EQ(VersionText(-1.5F), L"-1.5");
}

TEST(VersionText, EachHundredOfRevisionsHasItsLetter) {
    const std::wstring letters = L"abcdefghilmno";
    for (int hundred = 1; hundred <= 13; ++hundred) {
        const std::wstring expected = std::wstring(L"3.2") + letters[hundred - 1];
        EXPECT_EQ(VersionText({3, 2, hundred * 100}, false), expected) << hundred;
        EXPECT_EQ(VersionText({3, 2, hundred * 100 + 99}, false), expected) << hundred;
    }
}

TEST(VersionText, LettersJAndKAreSkipped) {
    EXPECT_EQ(VersionText({3, 2, 999}, false), L"3.2i");
    EXPECT_EQ(VersionText({3, 2, 1000}, false), L"3.2l");
}

TEST(VersionText, RevisionsOfNoHundredGiveNoLetter) {
    for (const int revision : {0, 1, 99, 1400, 1450, 1999, 2100, 3000, 32767, -1, -100, -150}) {
        EXPECT_EQ(VersionText({3, 2, revision}, false), L"3.2") << revision;
    }
}

TEST(VersionText, TestVersionsShowTheirNumber) {
    EXPECT_EQ(VersionText({3, 2, 2004}, false), L"3.2 t4");
    EXPECT_EQ(VersionText({3, 2, 2000}, false), L"3.2 t0");
    EXPECT_EQ(VersionText({3, 2, 2099}, false), L"3.2 t99");
}

TEST(VersionText, DebugModeShowsTheRevision) {
    EXPECT_EQ(VersionText({3, 2, 215}, false), L"3.2b");
    EXPECT_EQ(VersionText({3, 2, 215}, true), L"3.2b (r215)");
    EXPECT_EQ(VersionText({3, 2, 2004}, true), L"3.2 t4 (r2004)");
    EXPECT_EQ(VersionText({3, 2, 0}, true), L"3.2 (r0)");
}

TEST(VersionText, BeforeVersionOneTheRevisionShows) {
    EXPECT_EQ(VersionText({0, 9, 1450}, false), L"0.9 (r1450)");
    EXPECT_EQ(VersionText({0, 9, 120}, false), L"0.9a (r120)");
}

TEST(VersionText, TheProgramsOwnIsOnePointZero) {
    EXPECT_EQ(VersionText(kProgramVersion, false), L"1.0");
}

TEST(IsExperimental, FromRevision2000On) {
    for (const int revision : {-1, 0, 1999}) {
        EXPECT_FALSE(IsExperimental({1, 0, revision})) << revision;
    }
    for (const int revision : {2000, 2099, 2100, 32767}) {
        EXPECT_TRUE(IsExperimental({1, 0, revision})) << revision;
    }
}

TEST(IsExperimental, TheProgramsOwnVersionIsNot) {
    EXPECT_FALSE(IsExperimental());
}

TEST(DateText, FixedFormIsPaddedAndDayFirst) {
    EXPECT_EQ(DateText({2024, 3, 7, 23, 59, 59}), L"07/03/2024");
    EXPECT_EQ(DateText({1999, 12, 31, 0, 0, 0}), L"31/12/1999");
    EXPECT_EQ(DateText({800, 1, 1, 0, 0, 0}), L"01/01/0800");
}

TEST(DateText, TheUsersShortFormComesFromTheSystem) {
    const system::LocalTime date = {2024, 3, 7, 12, 0, 0};
    EXPECT_EQ(DateText(date, true), system::ShortDateText(date));
    EXPECT_NE(DateText(date, true), L"");
}

}  // namespace
}  // namespace corvane
