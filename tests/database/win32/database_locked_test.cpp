// Databases that other programs hold open, in the ways that only Windows knows.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "database/copying.h"
#include "database/creating.h"
#include "database/listing.h"
#include "database/scanning.h"
#include "files/file_system.h"
#include "platform/win32/win32.h"
#include "tests/database/sample_database.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

struct DatabaseLockedTest : testing::Test {
    test::TemporaryFolder folder;
    std::wstring path = folder.File(L"ship.ve2");
    std::string text = test::DatabaseText(test::FiveBlocks());
    HANDLE other = INVALID_HANDLE_VALUE;

    void SetUp() override { test::WriteFileBytes(path, text); }
    void TearDown() override { Release(); }
    void Hold(DWORD access, DWORD share) {
        other = CreateFileW(path.c_str(), access, share, nullptr, OPEN_EXISTING, 0, nullptr);
        ASSERT_NE(other, INVALID_HANDLE_VALUE);
    }
    void Release() {
        if (other != INVALID_HANDLE_VALUE) CloseHandle(other);
        other = INVALID_HANDLE_VALUE;
    }
};

TEST_F(DatabaseLockedTest, FileHeldExclusivelyGivesTheNeutralResults) {
    Hold(GENERIC_READ, 0);
    EXPECT_FALSE(IsDatabaseFile(path));
    EXPECT_EQ(CountModels(path), 0);
    EXPECT_TRUE(ListModelsWithPositions(path).empty());
    EXPECT_EQ(ModelPosition(path, 1), -1.0f);
}

TEST_F(DatabaseLockedTest, FileThatAnotherProgramWritesIsRead) {
    Hold(GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ);
    EXPECT_TRUE(IsDatabaseFile(path));
    EXPECT_EQ(CountModels(path), 5);
    EXPECT_EQ(ListModelsWithPositions(path).size(), 5u);
}

TEST_F(DatabaseLockedTest, OurReaderKeepsNobodyFromDeletingTheFile) {
    TextReader reader;
    ASSERT_TRUE(OpenText(reader, path));
    EXPECT_TRUE(DeleteFileW(path.c_str()));
    std::string keyword;
    EXPECT_TRUE(FindModel(reader, 5, keyword));
}

TEST_F(DatabaseLockedTest, LockedBytesEndTheScanAndAreReported) {
    // The last half can't be read: a copy would lack it, and the reader says so.
    Hold(GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
    const DWORD half = static_cast<DWORD>(text.size() / 2);
    ASSERT_TRUE(LockFile(other, half, 0, half, 0));
    TextReader reader;
    ASSERT_TRUE(OpenText(reader, path));
    std::string_view line;
    if (ReadLine(reader, line)) GTEST_SKIP() << "locks of bytes keep no reader off here";
    SeekLine(reader, 0);
    TextWriter writer;
    ASSERT_TRUE(CreateText(writer, folder.File(L"copy")));
    CopyFileHead(reader, writer);
    CopyModels(reader, writer, 1, -1, 0);
    EXPECT_TRUE(CloseText(writer));
    EXPECT_NE(reader.error, system::kErrorNone);
    EXPECT_TRUE(ListModelsWithPositions(path).empty());
}

TEST_F(DatabaseLockedTest, HeldDatabaseStaysAndTheNewOneIsNamed) {
    const test::RecordedReports screen;
    Hold(GENERIC_READ, FILE_SHARE_READ);
    BasicShipData bsd;
    EXPECT_FALSE(CreateDatabaseFile(path, bsd));
    const std::vector<std::string> warnings = test::RecordedReports::Of("warning");
    Release();
    EXPECT_EQ(test::ReadFileBytes(path), text);
    KillFile(path);
    const std::vector<std::wstring> left = test::FilesIn(folder.path);
    ASSERT_EQ(left.size(), 1u);
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_NE(warnings[0].find(test::Narrow(folder.File(left[0]))), std::string::npos)
        << warnings[0];
}

}  // namespace
}  // namespace corvane
