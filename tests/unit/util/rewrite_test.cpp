#include "util/rewrite.h"

#include <gtest/gtest.h>

#include "tests/unit/support.h"
#include "util/files.h"

namespace corvane {
namespace {

using test::ReadFileBytes;
using test::RecordingScreen;

struct RewriteTest : testing::Test {
    const RecordingScreen screen;
    const test::TemporaryFolder folder;
    const std::wstring target = folder.File(L"ship.ve2");
    Rewrite rewrite;

    void SetUp() override {
        test::WriteFileBytes(target, "old");
        BeginRewrite(rewrite, target);
        WriteText(rewrite.writer, "new");
    }
};

TEST_F(RewriteTest, NewTextTakesThePlaceOfTheOld) {
    EXPECT_EQ(ReadFileBytes(target), "old");
    EXPECT_TRUE(FinishRewrite(rewrite));
    EXPECT_EQ(ReadFileBytes(target), "new");
    EXPECT_FALSE(FileExists(rewrite.temporary));
    EXPECT_EQ(test::FilesIn(folder.path).size(), 1U);
    EXPECT_TRUE(RecordingScreen::Of("warning").empty());
}

TEST_F(RewriteTest, TextThatCouldNotBeReadWholeIsRemovedAndReported) {
    EXPECT_FALSE(FinishRewrite(rewrite, system::kErrorIoDevice));
    EXPECT_EQ(ReadFileBytes(target), "old");
    EXPECT_FALSE(FileExists(rewrite.temporary));
    ASSERT_EQ(RecordingScreen::Of("warning").size(), 1U);
    EXPECT_NE(RecordingScreen::Of("warning")[0].find(test::Narrow(target)), std::string::npos);
}

TEST_F(RewriteTest, TextThatCanNotBePutInPlaceIsKeptAndItsPathTold) {
    ASSERT_EQ(system::SetReadOnly(target, true), system::kErrorNone);
    EXPECT_FALSE(FinishRewrite(rewrite));
    EXPECT_EQ(ReadFileBytes(target), "old");
    EXPECT_EQ(ReadFileBytes(rewrite.temporary), "new");
    ASSERT_EQ(RecordingScreen::Of("warning").size(), 1U);
    EXPECT_NE(RecordingScreen::Of("warning")[0].find(test::Narrow(rewrite.temporary)),
              std::string::npos);
    KillFile(rewrite.temporary);
}

TEST(Rewrite, WithoutATemporaryFileNothingIsWritten) {
    const RecordingScreen screen;
    const test::TemporaryFolder folder;
    const std::wstring target = folder.File(L"ship.ve2");
    test::WriteFileBytes(target, "old");
    Rewrite rewrite;
    rewrite.target = target;
    EXPECT_FALSE(CreateText(rewrite.writer, folder.File(L"missing\\new.tmp")));
    WriteText(rewrite.writer, "new");
    EXPECT_FALSE(FinishRewrite(rewrite));
    EXPECT_EQ(ReadFileBytes(target), "old");
    EXPECT_EQ(RecordingScreen::Of("warning").size(), 1U);
}

}  // namespace
}  // namespace corvane
