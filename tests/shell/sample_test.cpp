// The sample ship that comes with the program: what its files promise to whoever opens them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cwchar>
#include <set>
#include <string>
#include <vector>

#include "bsd/basic_ship_data.h"
#include "bsd/bsd_file.h"
#include "bsd/frames.h"
#include "database/bulkhead_block.h"
#include "database/listing.h"
#include "database/scanning.h"
#include "database/section_block.h"
#include "database/section_view.h"
#include "files/text_file.h"
#include "legacy/compartments.h"
#include "preview/section_preview.h"
#include "tests/shell/sample_models.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::kSampleModels;
using test::kSectionCount;
using test::Narrow;

constexpr int32_t kLastBulkhead = 12;

struct SampleTest : testing::Test {
    test::RecordedReports reports;
    test::TemporaryFolder folder;
    std::wstring path = test::SamplePath();

    void TearDown() override {
        EXPECT_EQ(test::RecordedReports::Of("warning"), std::vector<std::string>{});
    }
    SectionModel ReadSection(int32_t number) const {
        SectionModel model;
        EXPECT_TRUE(ReadSectionBlock(path, number, false, model)) << number;
        return model;
    }
    // The lines after the name label of model `number`, as they are in the file.
    std::string Body(int32_t number) const {
        const std::string bytes = test::ReadFileBytes(path);
        const std::string marker = "====== CORVANE MODEL ======\r\n";
        const std::string label = "MODEL NAME\r\n";
        size_t begin = 0;
        for (int32_t i = 0; i < number; ++i) begin = bytes.find(marker, begin) + marker.size();
        begin = bytes.find(label, begin) + label.size();
        return bytes.substr(begin, bytes.find(marker, begin) - begin);
    }
    // What a writer of a block's body makes of a model.
    template <class Writer, class Model>
    std::string Written(Writer write, Model& model) const {
        TextWriter writer;
        EXPECT_TRUE(CreateText(writer, folder.File(L"again.txt")));
        write(writer, model);
        EXPECT_TRUE(CloseText(writer));
        return test::ReadFileBytes(folder.File(L"again.txt"));
    }
};

TEST_F(SampleTest, IsADatabaseInOurCatalogue) {
    EXPECT_TRUE(IsDatabaseFile(path));
}

TEST_F(SampleTest, LinesEndWithCrLf) {
    const std::string bytes = test::ReadFileBytes(path);
    ASSERT_FALSE(bytes.empty());
    EXPECT_EQ(bytes.substr(bytes.size() - 2), "\r\n");
    const auto returns = std::count(bytes.begin(), bytes.end(), '\r');
    EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\n'), returns);
}

TEST_F(SampleTest, ListsItsModels) {
    const std::vector<ModelEntry> models = ListModelsWithPositions(path);
    ASSERT_EQ(models.size(), std::size(kSampleModels));
    std::set<std::wstring> names;
    for (size_t i = 0; i < models.size(); ++i) {
        EXPECT_EQ(models[i].number, static_cast<int32_t>(i + 1));
        EXPECT_EQ(Narrow(models[i].name), Narrow(kSampleModels[i].name));
        EXPECT_EQ(models[i].kind, kSampleModels[i].kind) << i;
        EXPECT_EQ(models[i].x, kSampleModels[i].x_m) << i;
        names.insert(models[i].name);
    }
    EXPECT_EQ(names.size(), models.size()) << "a name twice";
}

TEST_F(SampleTest, BasicShipDataAreDefined) {
    BasicShipData bsd;
    ASSERT_TRUE(LoadBsdFromDatabase(path, bsd));
    EXPECT_TRUE(IsBsdDefined(bsd));
    EXPECT_EQ(bsd.Titles(1).Trimmed(), L"Aurora Bay");
    EXPECT_EQ(bsd.Titles(5).Trimmed(), L"AURORA BAY");
    EXPECT_EQ(bsd.ShipType(), 1);
    EXPECT_FLOAT_EQ(bsd.MainData(1), 217.0F);
    EXPECT_FLOAT_EQ(bsd.MainData(2), 32.25F);
    EXPECT_FLOAT_EQ(bsd.MainData(3), 19.6F);
    EXPECT_EQ(bsd.Remark.Trimmed(), L"Sample data: not a ship in service");
}

TEST_F(SampleTest, ModelsAreAtTheFramesOfTheirNames) {
    BasicShipData bsd;
    ASSERT_TRUE(LoadBsdFromDatabase(path, bsd));
    int count = 0;
    for (const ModelEntry& model : ListModelsWithPositions(path)) {
        int frame = 0;
        const size_t word = model.name.find(L"frame ");
        if (word == std::wstring::npos) continue;
        ASSERT_EQ(std::swscanf(model.name.c_str() + word, L"frame %d", &frame), 1);
        EXPECT_NEAR(FrameX(bsd, frame), model.x, 1e-4) << Narrow(model.name);
        ++count;
    }
    EXPECT_EQ(count, 10);
}

// ---- Sections ----------------------------------------------------------------------------------

TEST_F(SampleTest, SectionsAreComputedWithoutFault) {
    for (int32_t number = 1; number <= kSectionCount; ++number) {
        SectionModel model = ReadSection(number);
        LibraryView view;
        MakeLibraryView(model, view);
        DrawingParameters parameters{};
        EXPECT_EQ(QuickCompute(&view.section, &parameters), 0) << number;
        EXPECT_EQ(view.section.geometryPresent, -1) << number;
        EXPECT_FALSE(model.panels.empty()) << number;
        EXPECT_FALSE(model.compartments.empty()) << number;
        for (const Panel& panel : model.panels) {
            SCOPED_TRACE(Narrow(panel.name));
            EXPECT_FALSE(panel.plates.empty());
            for (const Node& node : panel.nodes) EXPECT_EQ(node.computed, -1);
        }
    }
}

int traceCount = 0;

// Points of the plating and ends of the stiffeners' webs that the picture does not show.
int PointsOutside(const Picture& picture, std::vector<Strake>& strakes, const SectionModel& model) {
    const auto isOutside = [&picture](float y, float z) {
        return y < picture.scaleLeft || y > picture.scaleLeft + picture.scaleWidth ||
               z > picture.scaleTop || z < picture.scaleTop + picture.scaleHeight;
    };
    constexpr int kPieces = 50;
    int outside = 0;
    for (size_t i = 0; i < model.panels.size(); ++i) {
        for (int k = 0; k <= kPieces; ++k) {
            float y = 0;
            float z = 0;
            const float s = strakes[i].length * static_cast<float>(k) / kPieces;
            EXPECT_EQ(SToYZ(&strakes[i], s, &y, &z, 0.001F), 0);
            outside += isOutside(y, z) ? 1 : 0;
        }
        for (const Stiffener& row : model.panels[i].stiffeners) {
            const float web = row.webHeight_mm / 1000;
            outside += isOutside(row.y + row.normalY * web, row.z + row.normalZ * web) ? 1 : 0;
        }
    }
    return outside;
}

TEST_F(SampleTest, SectionsAreDrawnInsideTheirFrame) {
    BasicShipData bsd;
    ASSERT_TRUE(LoadBsdFromDatabase(path, bsd));
    const test::FakeFunction trace(
        TraceSection, [](DeviceHandle, Section*, DrawingParameters*) { ++traceCount; });
    traceCount = 0;
    for (int32_t number = 1; number <= kSectionCount; ++number) {
        SectionModel model = ReadSection(number);
        LibraryView view;
        MakeLibraryView(model, view);
        Picture picture;
        picture.width = 4000;
        picture.height = 5000;
        picture.clear = [](Picture&) {};
        picture.setFont = [](Picture&, float) {};
        picture.systemColour = [](int) { return int32_t{0}; };
        DrawSectionPreview(view.section, bsd, picture);
        EXPECT_EQ(traceCount, number) << "is drawn";
        EXPECT_GT(picture.scaleWidth, 0) << number;
        EXPECT_EQ(PointsOutside(picture, view.strakes, model), 0) << number;
    }
}

TEST_F(SampleTest, SectionsAreWrittenAgainAsTheyAre) {
    for (int32_t number = 1; number <= kSectionCount; ++number) {
        SectionModel model = ReadSection(number);
        EXPECT_EQ(Written(WriteSectionBody, model), Body(number)) << number;
    }
}

// ---- The other models --------------------------------------------------------------------------

TEST_F(SampleTest, BulkheadsAreWrittenAgainAsTheyAre) {
    for (int32_t number = kSectionCount + 1; number <= kLastBulkhead; ++number) {
        BulkheadArrangement arrangement;
        ASSERT_TRUE(ReadBulkheadBlock(path, number, arrangement)) << number;
        EXPECT_FALSE(arrangement.bulkheads.empty()) << number;
        EXPECT_FALSE(arrangement.holds.empty()) << number;
        EXPECT_EQ(Written(WriteBulkheadBody, arrangement), Body(number)) << number;
    }
}

TEST_F(SampleTest, TorsionModelsHaveTheirFiveTables) {
    for (const int32_t number : {13, 14}) {
        const std::string body = Body(number);
        size_t at = 0;
        for (const char* table :
             {"HOLDS", "TRANS BEAM", "BEAM MODELS", "LONG BEAM", "TOR RESULTS"}) {
            const std::string head =
                "------------------ " + std::string(table) + " ------------------\r\n";
            at = body.find(head, at);
            ASSERT_NE(at, std::string::npos) << number << ' ' << table;
            at += head.size();
        }
    }
}

// Figures of docs/sample-ship.md; along the chords they would be 2.34 and 37.48.
TEST_F(SampleTest, TanksEndAtTheRoundedPlating) {
    const struct {
        int16_t section;
        const wchar_t* tank;
        float area_m2, centreY_m;
    } tanks[] = {{1, L"Bilge water tank", 2.770F, 8.414F},
                 {2, L"Double bottom and hopper tank", 43.971F, 10.621F}};
    for (const auto& expected : tanks) {
        SectionModel section = ReadSection(expected.section);
        LibraryView view;
        MakeLibraryView(section, view);
        QuickCompute(&view.section, nullptr);
        const auto tank = std::find_if(
            section.compartments.begin(), section.compartments.end(),
            [&](const Compartment& compartment) { return compartment.name == expected.tank; });
        ASSERT_NE(tank, section.compartments.end());
        ComputeCompartment(view.section, *tank);
        EXPECT_NEAR(tank->area_m2, expected.area_m2, 0.001);
        EXPECT_NEAR(tank->centreY_m, expected.centreY_m, 0.001);
    }
}

TEST_F(SampleTest, FlangesOfTheSideAreTurned) {
    for (int16_t number = 1; number <= kSectionCount; ++number) {
        for (const Panel& panel : ReadSection(number).panels) {
            const bool isSide = panel.name == L"Side shell" || panel.name == L"Sheer strake";
            for (const StiffenerDetail& detail : panel.stiffenerDetails) {
                EXPECT_EQ(detail.mirrored, isSide ? -1 : 0) << number << Narrow(panel.name);
            }
        }
    }
}

}  // namespace
}  // namespace corvane
