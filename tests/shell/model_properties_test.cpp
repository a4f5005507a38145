#include "shell/model_properties.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "report/messages.h"
#include "shell/commands/section_commands.h"
#include "tests/database/sample_database.h"
#include "tests/shell/command_support.h"

namespace corvane {
namespace {

using test::Narrow;
using test::RecordedReports;

struct ModelPropertiesTest : testing::Test {
    test::FakeView screen;
    test::TemporaryFolder folder;

    ModelPropertiesTest() {
        shell.database.path = folder.File(L"ship.ve2");
        test::WriteFileBytes(shell.database.path, test::DatabaseText(test::FiveBlocks()));
    }
    static std::string Of(int32_t number) {
        const std::vector<ModelEntry> models = ListModels(shell.database.path);
        std::wstring text;
        EXPECT_TRUE(ReadProperties(models.at(static_cast<size_t>(number) - 1), text));
        return Narrow(text);
    }
    // Whether the text has a line of this label and value.
    static bool Has(const std::string& text, const std::string& label, const std::string& value) {
        return ('\r' + text + '\r').find('\r' + label + '\t' + value + '\r') != std::string::npos;
    }
};

TEST_F(ModelPropertiesTest, EveryKindHasItsLines) {
    const std::string section = Of(1);
    EXPECT_TRUE(Has(section, "Name", "Frame 10")) << section;
    EXPECT_TRUE(Has(section, "Kind", "Section")) << section;
    EXPECT_TRUE(Has(section, "Number", "1")) << section;
    EXPECT_TRUE(Has(section, "Position", "12.500 m")) << section;
    EXPECT_TRUE(Has(section, "Frame", "No frame in BSD")) << section;
    EXPECT_TRUE(Has(section, "Panels", "0")) << section;
    const std::string size = std::to_string(BlockText(test::FiveBlocks()[0]).size());
    EXPECT_TRUE(Has(section, "Size of its block", size + " bytes")) << section;
    const std::string bulkhead = Of(2);
    EXPECT_TRUE(Has(bulkhead, "Kind", "Bulkhead")) << bulkhead;
    EXPECT_TRUE(Has(bulkhead, "Position", "40.250 m")) << bulkhead;
    EXPECT_TRUE(Has(bulkhead, "Holds", "0")) << bulkhead;
    const std::string torsion = Of(4);
    EXPECT_TRUE(Has(torsion, "Name", "Girder")) << torsion;
    EXPECT_TRUE(Has(torsion, "Tables", "1")) << torsion;
    EXPECT_EQ(torsion.find("Position"), std::string::npos) << torsion;
}

TEST_F(ModelPropertiesTest, NearestFrameIsThatOfTheShip) {
    BasicShipData& bsd = shell.database.bsd;
    bsd.FrameZoneCount = 1;
    bsd.FrameNumbers(1) = 100;
    bsd.ZoneSpacing(1) = 0.5F;
    EXPECT_TRUE(Has(Of(1), "Frame", "25")) << Of(1);
    bsd.FrameZeroX = -0.2F;
    EXPECT_TRUE(Of(1).find("Frame\t25 (") != std::string::npos) << Of(1);
}

TEST_F(ModelPropertiesTest, CommandShowsTheCurrentModelAndChangesNothing) {
    const std::string before = test::ReadFileBytes(shell.database.path);
    shell.database.currentModel = 2;
    ME_SectionProperties_Click();
    EXPECT_EQ(RecordedReports::Of("properties"),
              std::vector<std::string>{"Properties Bulkhead: " + Of(2)});
    EXPECT_EQ(test::ReadFileBytes(shell.database.path), before);
    shell.database.currentModel = 9;
    RecordedReports::events.clear();
    ME_SectionProperties_Click();
    EXPECT_EQ(RecordedReports::Of("properties"), std::vector<std::string>{});
    EXPECT_EQ(RecordedReports::Of("warning").size(), 1U);
}

}  // namespace
}  // namespace corvane
