// The sample ship that comes with the program.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "bsd/bsd_file.h"
#include "bsd/frames.h"
#include "database/database_file.h"
#include "legacy/exchange.h"
#include "shell/state.h"
#include "shell/window_contents.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

std::wstring SamplePath() {
    return test::DataPath("../samples/aurora_bay.ve2");
}

struct ExpectedModel {
    const wchar_t* name;
    const wchar_t* x;
    const wchar_t* type;
};

constexpr ExpectedModel kModels[] = {
    {L"Engine room, frame 30", L"20.700", L"Section"},
    {L"Hold 7, frame 61", L"44.700", L"Section"},
    {L"Hold 6, frame 91", L"68.700", L"Section"},
    {L"Hold 5, frame 121", L"92.700", L"Section"},
    {L"Midship section, hold 4", L"108.500", L"Section"},
    {L"Hold 3, frame 181", L"140.700", L"Section"},
    {L"Hold 2, frame 211", L"164.700", L"Section"},
    {L"Hold 1, frame 240", L"187.900", L"Section"},
    {L"Fore peak, frame 270", L"208.700", L"Section"},
    {L"Engine room bulkhead, frame 46", L"32.700", L"Bulkhead"},
    {L"Corrugated bulkhead, holds 5 and 4", L"104.700", L"Bulkhead"},
    {L"Collision bulkhead, frame 254", L"199.100", L"Bulkhead"},
    {L"Torsion model, holds 7 to 1", L"", L"Torsion"},
    {L"Torsion model, holds 5 to 3", L"", L"Torsion"},
};

TEST(Sample, IsADatabaseInOurCatalogue) {
    EXPECT_TRUE(IsDatabaseFile(SamplePath()));
}

TEST(Sample, ListsItsModels) {
    const test::RecordingScreen screen;
    const std::vector<ModelRow> rows = FillModelList(SamplePath());
    ASSERT_EQ(rows.size(), std::size(kModels));
    for (size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(test::Narrow(rows[i].name), test::Narrow(kModels[i].name));
        EXPECT_EQ(test::Narrow(rows[i].x), test::Narrow(kModels[i].x));
        EXPECT_EQ(test::Narrow(rows[i].type), test::Narrow(kModels[i].type));
    }
}

TEST(Sample, BasicShipDataAreDefined) {
    const test::RecordingScreen screen;
    BasicShipData bsd;
    ASSERT_TRUE(LoadBsdFromDatabase(SamplePath(), bsd));
    EXPECT_TRUE(IsBsdDefined(bsd));
    EXPECT_EQ(bsd.Titles(1).Trimmed(), L"Aurora Bay");
    EXPECT_EQ(bsd.Titles(5).Trimmed(), L"AURORA BAY");
    EXPECT_EQ(bsd.ShipType(), 1);
    EXPECT_FLOAT_EQ(bsd.MainData(1), 217.0F);
    EXPECT_FLOAT_EQ(bsd.MainData(2), 32.25F);
    EXPECT_FLOAT_EQ(bsd.MainData(3), 19.6F);
    EXPECT_EQ(bsd.Remark.Trimmed(), L"Sample data: not a ship in service");
}

TEST(Sample, FramesReachFromSternToBow) {
    const test::RecordingScreen screen;
    BasicShipData bsd;
    ASSERT_TRUE(LoadBsdFromDatabase(SamplePath(), bsd));
    EXPECT_NEAR(FrameX(bsd, -6), -3.6, 1e-4);
    EXPECT_NEAR(FrameX(bsd, 12), 7.2, 1e-4);
    EXPECT_NEAR(FrameX(bsd, 46), 32.7, 1e-4);
    EXPECT_NEAR(FrameX(bsd, 254), 199.1, 1e-4);
    EXPECT_NEAR(FrameX(bsd, 292), 221.9, 1e-4);
}

TEST(Sample, SectionsStandAtTheFramesOfTheirNames) {
    const test::RecordingScreen screen;
    ASSERT_TRUE(LoadBsdFromDatabase(SamplePath(), shell.bsd));
    EXPECT_EQ(FrameText(ModelPosition(SamplePath(), 1)), L"Frame : 30");
    EXPECT_EQ(FrameText(ModelPosition(SamplePath(), 5)), L"Closer Frame : 141 (0.200 m)");
    EXPECT_EQ(FrameText(ModelPosition(SamplePath(), 9)), L"Frame : 270");
    EXPECT_EQ(FrameText(ModelPosition(SamplePath(), 12)), L"Frame : 254");
}

TEST(Sample, LegacyDatabaseMadeAgainIsTheSame) {
    const test::RecordingScreen screen;
    const test::TemporaryFolder folder;
    const std::wstring made = folder.File(L"made.vel");
    ASSERT_TRUE(ExportDatabase(SamplePath(), made));
    EXPECT_TRUE(test::RecordingScreen::Of("warning").empty());
    const std::string bytes = test::ReadFileBytes(made);
    EXPECT_EQ(bytes.size(), 150620u);
    EXPECT_TRUE(bytes == test::ReadFileBytes(test::DataPath("../samples/aurora_bay.vel")));
}

TEST(Sample, LinesEndWithCrLf) {
    const std::string bytes = test::ReadFileBytes(SamplePath());
    ASSERT_FALSE(bytes.empty());
    EXPECT_EQ(bytes.substr(bytes.size() - 2), "\r\n");
    const auto returns = std::count(bytes.begin(), bytes.end(), '\r');
    EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\n'), returns);
}

}  // namespace
}  // namespace corvane
