// The box that says what an exchange lost.
#include "legacy/losses.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using namespace test;

TEST(Losses, NothingIsShownWhenNothingWasLost) {
    const RecordedReports screen;
    ExchangeLosses all;
    AddLosses(all, L"Frame 10", {});
    ReportLosses(L"C:\\ship.vel", all);
    EXPECT_TRUE(RecordedReports::events.empty());
}

TEST(Losses, OneBoxHasThoseOfTheWholeThenThoseOfEachSection) {
    const RecordedReports screen;
    ExchangeLosses all;
    NoteLoss(all.whole, kMsgSectionsNotConverted, {4, 24});
    AddLosses(all, L"Frame 10", {L"one", L"two"});
    AddLosses(all, L"Frame 20", {});
    AddLosses(all, L"Frame 30", {L"three"});
    ReportLosses(L"C:\\ship.vel", all);
    const std::string whole = Narrow(FormatMessage(kMsgSectionsNotConverted, {4, 24}));
    EXPECT_EQ(
        RecordedReports::Of("warning"),
        (std::vector<std::string>{
            "Not everything could be exchanged with the database 'C:\\ship.vel'.\r\r" + whole +
            "\r\rWhat was left out or changed, in 2 sections:"
            "\r\rSection 'Frame 10':\rone\rtwo\r\rSection 'Frame 30':\rthree"}));
}

TEST(Losses, ThoseBeyondTheScreenAreCounted) {
    const RecordedReports screen;
    ExchangeLosses all;
    for (int i = 0; i < 30; ++i) AddLosses(all, L"Frame " + std::to_wstring(i), {L"lost"});
    ReportLosses(L"C:\\ship.vel", all);
    const std::vector<std::string> warnings = RecordedReports::Of("warning");
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_LT(std::count(warnings[0].begin(), warnings[0].end(), '\r'), 45);
    EXPECT_NE(warnings[0].find("in 30 sections:"), std::string::npos) << warnings[0];
    EXPECT_TRUE(warnings[0].ends_with("... and 38 more.")) << warnings[0];
}

}  // namespace
}  // namespace corvane
