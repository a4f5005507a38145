// Rewriting a file through a link, and what the new file takes over of the old one: the host's.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "files/rewrite.h"
#include "tests/support/damage.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

mode_t ModeOf(const std::wstring& path) {
    struct stat status;
    EXPECT_EQ(stat(test::NativePath(path).c_str(), &status), 0);
    return status.st_mode & 07777;
}

struct HostRewriteTest : testing::Test {
    const test::RecordedReports screen;
    const test::TemporaryFolder folder;
    const std::wstring target = folder.File(L"ship.ve2");
    Rewrite rewrite;

    void SetUp() override { test::WriteFileBytes(target, "old"); }
};

TEST_F(HostRewriteTest, FileIsReplacedWhereASymbolicLinkLeads) {
    const test::TemporaryFolder elsewhere;
    const std::wstring link = elsewhere.File(L"link.ve2");
    std::filesystem::create_symlink(test::NativePath(target), test::NativePath(link));
    rewrite.keepBackup = true;
    ASSERT_TRUE(OpenOldText(rewrite, link));
    BeginRewrite(rewrite, link);
    WriteText(rewrite.writer, "new");
    EXPECT_EQ(FinishRewrite(rewrite), RewriteEnd::kDone);
    EXPECT_TRUE(std::filesystem::is_symlink(test::NativePath(link)));
    EXPECT_EQ(test::ReadFileBytes(target), "new");
    EXPECT_EQ(test::ReadFileBytes(folder.File(L"ship.bak")), "old");
    EXPECT_EQ(test::FilesIn(elsewhere.path).size(), 1U);
}

TEST_F(HostRewriteTest, PermissionsAreThoseOfTheOldFileFromTheFirstLineOn) {
    for (const mode_t mode : {mode_t{0600}, mode_t{0664}}) {
        ASSERT_EQ(chmod(test::NativePath(target).c_str(), mode), 0);
        Rewrite one;
        ASSERT_TRUE(OpenOldText(one, target));
        BeginRewrite(one, target);
        EXPECT_EQ(ModeOf(one.newText), mode);
        WriteText(one.writer, "new");
        EXPECT_EQ(FinishRewrite(one), RewriteEnd::kDone);
        EXPECT_EQ(ModeOf(target), mode);
    }
}

TEST_F(HostRewriteTest, GroupIsThatOfTheOldFile) {
    if (geteuid() != 0) GTEST_SKIP() << "only the administrator has groups to choose from";
    ASSERT_EQ(chown(test::NativePath(target).c_str(), 1, 2), 0);
    BeginRewrite(rewrite, target);
    WriteText(rewrite.writer, "new");
    EXPECT_EQ(FinishRewrite(rewrite), RewriteEnd::kDone);
    struct stat status;
    ASSERT_EQ(stat(test::NativePath(target).c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 1U);
    EXPECT_EQ(status.st_gid, 2U);
}

TEST_F(HostRewriteTest, ProgramThatLocksTheFileIsWaitedForAndReported) {
    const int other = open(test::NativePath(target).c_str(), O_RDWR);
    ASSERT_EQ(flock(other, LOCK_EX), 0);
    EXPECT_FALSE(OpenOldText(rewrite, target));
    EXPECT_EQ(rewrite.reader.error, system::kErrorSharingViolation);
    ReportTextNotWritten(target, rewrite.reader.error);
    ASSERT_EQ(test::RecordedReports::Of("warning").size(), 1U);
    EXPECT_NE(test::RecordedReports::Of("warning")[0].find("open for writing"), std::string::npos);
    close(other);
    EXPECT_TRUE(OpenOldText(rewrite, target));
}

}  // namespace
}  // namespace corvane
