// AppendModels.
#include "tests/database/editing_fixture.h"

namespace corvane {
namespace {

using test::DatabaseText;
using test::FiveBlocks;
using test::SampleHead;

struct AppendModelsTest : test::EditingTest {
    std::wstring source = folder.File(L"source.ve2");

    void SetUp() override {
        test::WriteFileBytes(source, test::ReadFileBytes(test::DataPath("golden/models.ve2")));
    }
};

TEST_F(AppendModelsTest, AllOfThemFollowTheLastModel) {
    Write(DatabaseText(FiveBlocks()));
    const std::vector<ModelEntry> models = ListModels(source);
    ASSERT_GE(models.size(), 3U);
    const auto count = static_cast<int32_t>(models.size());
    EXPECT_EQ(AppendModels(path, source, models, {.keepBackup = true}), 5 + count);
    const std::vector<ModelEntry> now = ListModels(path);
    ASSERT_EQ(now.size(), 5 + models.size());
    for (size_t i = 0; i < models.size(); ++i) {
        EXPECT_EQ(now[5 + i].name, models[i].name);
        EXPECT_EQ(now[5 + i].kind, models[i].kind);
        EXPECT_EQ(now[5 + i].number, static_cast<int32_t>(6 + i));
    }
    EXPECT_EQ(test::ReadFileBytes(folder.File(L"ship.bak")), DatabaseText(FiveBlocks()));
}

TEST_F(AppendModelsTest, WhenOneCannotBeReadNoneIsThere) {
    const std::string text = DatabaseText(FiveBlocks());
    Write(text);
    std::vector<ModelEntry> models = ListModels(source);
    models.back().number = 99;
    models.back().offset = -1;
    EXPECT_EQ(AppendModels(path, source, models, {.keepBackup = true}), 0);
    EXPECT_EQ(Text(), text);
    EXPECT_EQ(test::FilesIn(folder.path).size(), 2U);
    EXPECT_EQ(test::RecordedReports::Of("warning").size(), 1U);
}

TEST_F(AppendModelsTest, NoModelsAreNothingToWrite) {
    const std::string text = DatabaseText(FiveBlocks());
    Write(text);
    EXPECT_EQ(AppendModels(path, source, {}, {.keepBackup = true}), 0);
    EXPECT_EQ(Text(), text);
}

}  // namespace
}  // namespace corvane
