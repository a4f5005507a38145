#include <gtest/gtest.h>

#include <ctime>

#include "platform/system.h"
#include "tests/support/support.h"

namespace corvane::system {
namespace {

TEST(Clock, NowIsTheLocalTime) {
    const std::time_t before = std::time(nullptr);
    const LocalTime now = Now();
    const std::time_t after = std::time(nullptr);
    std::tm parts{};
    parts.tm_year = now.year - 1900;
    parts.tm_mon = now.month - 1;
    parts.tm_mday = now.day;
    parts.tm_hour = now.hour;
    parts.tm_min = now.minute;
    parts.tm_sec = now.second;
    parts.tm_isdst = -1;
    const std::time_t shown = std::mktime(&parts);
    // The C library and the system may round to the second differently.
    EXPECT_GE(shown, before - 1);
    EXPECT_LE(shown, after + 1);
}

TEST(Clock, ShortDateHoldsDayMonthAndYear) {
    const std::wstring text = ShortDateText({2031, 5, 17, 0, 0, 0});
    EXPECT_NE(text.find(L"17"), std::wstring::npos) << test::Narrow(text);
    EXPECT_NE(text.find(L"5"), std::wstring::npos) << test::Narrow(text);
    EXPECT_NE(text.find(L"31"), std::wstring::npos) << test::Narrow(text);
}

TEST(Clock, LongTimeHoldsHourMinuteAndSecond) {
    const std::wstring text = LongTimeText({2031, 5, 17, 9, 41, 27});
    EXPECT_NE(text.find(L"9"), std::wstring::npos) << test::Narrow(text);
    EXPECT_NE(text.find(L"41"), std::wstring::npos) << test::Narrow(text);
    EXPECT_NE(text.find(L"27"), std::wstring::npos) << test::Narrow(text);
}

TEST(Clock, SleepingTakesItsTime) {
    const int64_t start = Milliseconds();
    SleepFor(60);
    const int64_t passed = Milliseconds() - start;
    EXPECT_GE(passed, 40);  // the system's clock may advance in steps of 16 ms
    EXPECT_LT(passed, 10'000);
}

}  // namespace
}  // namespace corvane::system
