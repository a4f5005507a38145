// What became of the models of an exchange.
#include "legacy/exchange_report.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using namespace test;

ExchangeReport SomeOfEach() {
    ExchangeReport report;
    AddSection(report, L"Frame 10", {L"one", L"two"});
    AddSection(report, L"Frame 20", {});
    AddLeftOut(report, ModelKind::kBulkhead, L"Aft", kMsgLegacyHasSectionsOnly);
    AddSection(report, L"Frame 30", {L"three"});
    return report;
}

TEST(ExchangeReport, EveryModelIsThereWithWhatBecameOfIt) {
    const std::vector<ExchangeLine> lines = LinesOf(SomeOfEach());
    std::wstring text;
    for (const ExchangeLine& line : lines) {
        text += line.model + L"|" + line.kind + L"|" + OutcomeText(line.outcome) + L"|" +
                line.what + L"\n";
    }
    EXPECT_EQ(Narrow(text),
              "Frame 10|Section|Changed|one\n"
              "Frame 10|Section|Changed|two\n"
              "Frame 20|Section|Went over|\n"
              "Aft|Bulkhead|Left out|A DOS database holds sections only.\n"
              "Frame 30|Section|Changed|three\n");
}

TEST(ExchangeReport, LineForTheStatusBarCountsThemByKind) {
    ExchangeReport report = SomeOfEach();
    EXPECT_EQ(Narrow(ArrivedText(report)), "3 sections");
    EXPECT_EQ(CountArrived(report), 3);
    EXPECT_EQ(Narrow(RestText(report)),
              "; 2 sections were changed; 1 bulkhead arrangement was left out");
    AddLeftOut(report, ModelKind::kTorsion, L"Girder", kMsgLegacyHasSectionsOnly);
    EXPECT_EQ(Narrow(RestText(report)),
              "; 2 sections were changed; 1 bulkhead arrangement and 1 torsion model were left "
              "out");
    ExchangeReport sound;
    AddSection(sound, L"Frame 10", {});
    EXPECT_EQ(Narrow(ArrivedText(sound)), "1 section");
    EXPECT_TRUE(RestText(sound).empty());
}

TEST(ExchangeReport, UnchangedMeansModelsAndShipAndAllElse) {
    ExchangeReport report;
    EXPECT_TRUE(IsUnchanged(report));
    AddSection(report, L"Frame 10", {});
    report.hasShip = true;
    EXPECT_TRUE(IsUnchanged(report));
    EXPECT_EQ(LinesOf(report).size(), 2U) << "the ship's data and the section";
    report.ship = {L"a title"};
    EXPECT_FALSE(IsUnchanged(report));
    report.ship.clear();
    report.whole = {L"more"};
    EXPECT_FALSE(IsUnchanged(report));
    EXPECT_FALSE(IsUnchanged(SomeOfEach()));
}

TEST(ExchangeReport, NothingIsShownWhenNothingWasLost) {
    const RecordedReports screen;
    ExchangeReport report;
    AddSection(report, L"Frame 10", {});
    ReportLosses(L"C:\\ship.vel", report);
    EXPECT_TRUE(RecordedReports::events.empty());
}

TEST(ExchangeReport, OneBoxHasWhatWasLeftOutThenWhatWasChanged) {
    const RecordedReports screen;
    ExchangeReport report = SomeOfEach();
    report.whole = {L"more"};
    ReportLosses(L"C:\\ship.vel", report);
    EXPECT_EQ(RecordedReports::Of("warning"),
              (std::vector<std::string>{
                  "Not everything could be exchanged with the database 'C:\\ship.vel'.\r\rmore"
                  "\r'Aft' was left out. A DOS database holds sections only."
                  "\r\rWhat was left out or changed, in 2 sections:"
                  "\r\r'Frame 10':\rone\rtwo\r\r'Frame 30':\rthree"}));
}

TEST(ExchangeReport, LossesBeyondTheScreenAreCounted) {
    const RecordedReports screen;
    ExchangeReport report;
    for (int i = 0; i < 30; ++i) AddSection(report, L"Frame " + std::to_wstring(i), {L"lost"});
    ReportLosses(L"C:\\ship.vel", report);
    const std::vector<std::string> warnings = RecordedReports::Of("warning");
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_LT(std::count(warnings[0].begin(), warnings[0].end(), '\r'), 45);
    EXPECT_NE(warnings[0].find("in 30 sections:"), std::string::npos) << warnings[0];
    EXPECT_TRUE(warnings[0].ends_with("... and 38 more.")) << warnings[0];
}

}  // namespace
}  // namespace corvane
