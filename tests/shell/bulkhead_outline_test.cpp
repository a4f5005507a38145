// The ship's outline at a bulkhead arrangement: of the nearest section, or from breadth and depth.
#include "shell/bulkhead_outline.h"

#include <gtest/gtest.h>

#include "bsd/bsd_file.h"
#include "database/editing.h"
#include "files/file_system.h"
#include "shell/model_list.h"
#include "tests/shell/sample_models.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::RecordedReports;

struct BulkheadOutline : testing::Test {
    RecordedReports reports;
    test::TemporaryFolder folder;
    std::wstring path = folder.File(L"ship.ve2");
    BasicShipData bsd;
    std::vector<ModelRow> rows;

    BulkheadOutline() {
        test::WriteFileBytes(path, test::ReadFileBytes(test::SamplePath()));
        EXPECT_TRUE(LoadBsdFromDatabase(path, bsd));
        rows = FillModelList(path);
    }
    ShipOutline At(float x_m) { return OutlineAt(path, SectionPlaces(rows), bsd, x_m); }
    // Takes the plating away from a section.
    void Strip(int32_t number) {
        SectionModel bare;
        bare.name = L"Bare";
        bare.x_m = rows.at(static_cast<size_t>(number - 1)).x_m;
        EXPECT_TRUE(ReplaceSection(path, bare, number));
        rows = FillModelList(path);
    }
};

TEST_F(BulkheadOutline, IsThatOfTheNearestSection) {
    // The corrugated bulkhead is 3.8 m from the midship section, 12 m from that of hold 5.
    const ShipOutline outline = At(104.7F);
    EXPECT_EQ(outline.source, OutlineSource::kSection);
    EXPECT_EQ(outline.sectionName, L"Midship section, hold 4");
    EXPECT_FLOAT_EQ(outline.section_m, 108.5F);
    EXPECT_NEAR(AcrossAtHeight(outline.half, 10)->to, 32.25 / 2, 0.01);
    EXPECT_EQ(At(-40).sectionName, L"Engine room, frame 30");
    EXPECT_EQ(At(500).sectionName, L"Fore peak, frame 270");
    EXPECT_TRUE(RecordedReports::Of("warning").empty());
}

TEST_F(BulkheadOutline, SectionWithoutPlatingIsPassedOver) {
    Strip(5);
    EXPECT_EQ(At(104.7F).sectionName, L"Hold 5, frame 121");
}

TEST_F(BulkheadOutline, RowWithoutANumberOfItsOwnIsPassedOver) {
    rows[4].hasOwnNumber = false;
    EXPECT_EQ(At(104.7F).sectionName, L"Hold 5, frame 121");
}

TEST_F(BulkheadOutline, WithoutSectionsItIsTheShipsBreadthAndDepth) {
    rows.erase(rows.begin(), rows.begin() + test::kSectionCount);
    const ShipOutline outline = At(104.7F);
    EXPECT_EQ(outline.source, OutlineSource::kBreadthAndDepth);
    EXPECT_FLOAT_EQ(static_cast<float>(BoxOf(outline.half).right), bsd.MainData(2) / 2);
    EXPECT_FLOAT_EQ(static_cast<float>(BoxOf(outline.half).top), bsd.MainData(3));
    bsd = {};
    EXPECT_EQ(At(104.7F).source, OutlineSource::kNone);
}

TEST_F(BulkheadOutline, FileThatIsGoneIsReportedOnce) {
    KillFile(path);
    EXPECT_EQ(At(104.7F).source, OutlineSource::kBreadthAndDepth);
    EXPECT_EQ(RecordedReports::Of("warning").size(), 1U);
}

}  // namespace
}  // namespace corvane
