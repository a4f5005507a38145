// What two databases differ in: its summary, its values, its report.
#include "shell/comparison.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "report/messages.h"
#include "tests/shell/compared_ships.h"
#include "tests/shell/fake_view.h"
#include "tests/support/wrapped_system.h"

namespace corvane {
namespace {

using test::Narrow;
using test::RecordedReports;
using test::WriteFileBytes;
using Lines = std::vector<std::string>;

struct ComparisonTest : testing::Test {
    test::FakeView view;
    test::TemporaryFolder folder;
    Comparison comparison;

    ComparisonTest() {
        comparison.before = folder.File(L"other.ve2");
        comparison.beforeName = L"other.ve2";
        comparison.now = folder.File(L"ship.ve2");
        WriteFileBytes(comparison.before, test::ShipBefore());
        WriteFileBytes(comparison.now, test::ShipNow());
    }
    void Compare() { ASSERT_TRUE(CompareFiles(comparison)); }
    // The first model that has this change.
    const ComparedModel& ModelThatIs(const wchar_t* change) const {
        const auto found = std::ranges::find(comparison.models, std::wstring(change), ChangeText);
        EXPECT_NE(found, comparison.models.end()) << Narrow(change);
        return *found;
    }
    Lines ValuesOf(const ComparedModel& model) const {
        std::vector<Difference> differences;
        EXPECT_TRUE(DifferencesOf(comparison, model, differences));
        Lines lines;
        for (const Difference& each : differences) {
            lines.push_back(Narrow(each.where + L": " + TextOf(each)));
        }
        return lines;
    }
    static Lines Warnings() { return RecordedReports::Of("warning"); }
};

TEST_F(ComparisonTest, SummaryCountsEachKindOfDifference) {
    Compare();
    EXPECT_FALSE(AreSame(comparison));
    EXPECT_EQ(Narrow(SummaryOf(comparison)),
              "Models added: 1, removed: 2, renamed: 2, with another number: 0, changed: 1, as "
              "before: 9. The Basic Ship Data differ.");
    EXPECT_EQ(comparison.ship.size(), 1U);
    EXPECT_EQ(WhyOutdated(comparison), L"");
    EXPECT_EQ(RecordedReports::caption, L"");
}

TEST_F(ComparisonTest, DatabaseAndItsCopyAreTheSame) {
    WriteFileBytes(comparison.now, test::ShipBefore());
    Compare();
    EXPECT_TRUE(AreSame(comparison));
    EXPECT_EQ(Narrow(SummaryOf(comparison)), "There are no differences. Models: 14.");
}

TEST_F(ComparisonTest, ValuesSayWhereWhatBeforeAndNow) {
    Compare();
    EXPECT_EQ(ValuesOf(ModelThatIs(L"Changed")),
              Lines{"Panel 5 'Sheer strake', node 2: z [m]: 19.6 -> 21.6"});
    EXPECT_EQ(ValuesOf(ModelThatIs(L"Renamed")),
              Lines{"Model: Name: Midship section, hold 4 -> Midship section"});
    EXPECT_EQ(ValuesOf(ModelThatIs(L"Added")), Lines());
    EXPECT_EQ(ValuesOf(ModelThatIs(L"Removed")), Lines());
}

TEST_F(ComparisonTest, ReportHasARowForEachValue) {
    Compare();
    Report report;
    ASSERT_TRUE(ReportOf(comparison, report));
    EXPECT_EQ(report.title, L"Comparison with other.ve2");
    EXPECT_EQ(report.summary, SummaryOf(comparison));
    EXPECT_EQ(report.fileName, L"ship comparison");
    ASSERT_EQ(report.rows.size(), size_t{test::kComparedRows});
    EXPECT_EQ(report.rows[0].cells[4], L"Aurora Bay");
    EXPECT_EQ(report.rows[0].cells[5], L"Aurora Bay II");
    EXPECT_EQ(report.rows[5].cells,
              (std::vector<std::wstring>{L"Removed", L"3 Hold 6, frame 91", L"", L"", L"", L""}));
}

TEST_F(ComparisonTest, CancelledReportIsNoReport) {
    Compare();
    const test::SlowSystem slow;
    RecordedReports::timesShown = 0;
    RecordedReports::cancelAt = 1;
    Report report;
    EXPECT_FALSE(ReportOf(comparison, report));
    EXPECT_TRUE(Warnings().empty());
    EXPECT_EQ(RecordedReports::caption, FormatMessage(kMsgReadingCancelled, {comparison.before}));
}

TEST_F(ComparisonTest, CancelledComparisonIsNone) {
    const test::SlowSystem slow;
    RecordedReports::timesShown = 0;
    RecordedReports::cancelAt = 1;
    EXPECT_FALSE(CompareFiles(comparison));
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(ComparisonTest, FileThatIsNotThereOrNoDatabaseIsReported) {
    system::RemoveFile(comparison.before);
    EXPECT_FALSE(CompareFiles(comparison));
    ASSERT_EQ(Warnings().size(), 1U);
    EXPECT_NE(Warnings()[0].find("other.ve2' is no longer there"), std::string::npos);
    RecordedReports::events.clear();
    WriteFileBytes(comparison.before, "Ask the yard.\r\n");
    EXPECT_FALSE(CompareFiles(comparison));
    ASSERT_EQ(Warnings().size(), 1U);
    EXPECT_NE(Warnings()[0].find("is not a Corvane database"), std::string::npos);
}

// Another model may be at the place of the one that was compared.
TEST_F(ComparisonTest, FilesThatChangeLaterMakeItOutdated) {
    for (const std::wstring& path : {comparison.before, comparison.now}) {
        Compare();
        WriteFileBytes(path, test::ShipBefore() + "\r\n");
        const std::string name = path == comparison.before ? "'other.ve2'" : "'ship.ve2'";
        EXPECT_TRUE(Narrow(WhyOutdated(comparison)).starts_with(name + " has changed since"));
        Report report;
        RecordedReports::events.clear();
        EXPECT_FALSE(ReportOf(comparison, report));
        EXPECT_EQ(Warnings(), Lines{Narrow(WhyOutdated(comparison))});
    }
    Compare();
    system::RemoveFile(comparison.before);
    EXPECT_NE(WhyOutdated(comparison), L"");
}

}  // namespace
}  // namespace corvane
