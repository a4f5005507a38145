#include "shell/crash_reports.h"

#include <gtest/gtest.h>

#include "shell/program_log.h"
#include "tests/shell/command_support.h"

namespace corvane {
namespace {

using test::FilesIn;
using test::Narrow;
using test::WriteFileBytes;
using Names = std::vector<std::wstring>;

struct CrashReports : test::CommandTest {
    std::wstring usual = system::LocalDataDirectory();
    std::wstring dumps;

    CrashReports() {
        test::SetLocalDataDirectory(folder.path);
        dumps = LogFolder();
        system::MakeDirectory(folder.File(L"Corvane"));
    }
    ~CrashReports() override { test::SetLocalDataDirectory(usual); }

    void Leave(const std::wstring& name, const std::string& text = "MDMP") const {
        WriteFileBytes(dumps + name, text);
    }
};

TEST_F(CrashReports, NewDumpIsReportedOnceAndKept) {
    Leave(L"Corvane 2026-11-23 164012 1234.new.dmp");
    ReportCrashes();
    const std::wstring path = dumps + L"Corvane 2026-11-23 164012 1234.dmp";
    ASSERT_EQ(Warnings().size(), 1U);
    EXPECT_NE(Warnings()[0].find("'" + Narrow(path) + "'"), std::string::npos) << Warnings()[0];
    EXPECT_EQ(Warnings()[0].rfind("Corvane ended unexpectedly when it was last in use (", 0), 0U);
    EXPECT_EQ(FilesIn(dumps), Names{L"Corvane 2026-11-23 164012 1234.dmp"});
    EXPECT_EQ(test::RecordedReports::Of("colour").back(), "text") << "this run has no fault";
    ReportCrashes();
    EXPECT_EQ(Warnings().size(), 1U);
}

TEST_F(CrashReports, SeveralNewDumpsGiveOneBoxThatNamesTheNewest) {
    Leave(L"Corvane 2026-11-23 164012 1234.new.dmp");
    Leave(L"Corvane 2026-11-24 080000 99.new.dmp");
    ReportCrashes();
    ASSERT_EQ(Warnings().size(), 1U);
    EXPECT_NE(Warnings()[0].find("2026-11-24 080000 99.dmp"), std::string::npos);
    EXPECT_EQ(FilesIn(dumps),
              (Names{L"Corvane 2026-11-23 164012 1234.dmp", L"Corvane 2026-11-24 080000 99.dmp"}));
}

TEST_F(CrashReports, CrashWithoutADumpIsReportedWithTheLog) {
    Leave(L"Corvane 2026-11-23 164012 1234.new.dmp", "");
    ReportCrashes();
    ASSERT_EQ(Warnings().size(), 1U);
    EXPECT_NE(Warnings()[0].find("'" + Narrow(LogPath()) + "'"), std::string::npos);
}

TEST_F(CrashReports, OnlyTheNewestFiveAreKeptAndOtherFilesStay) {
    for (const wchar_t day : {L'1', L'2', L'3', L'4', L'5', L'6'}) {
        Leave(std::wstring(L"Corvane 2026-11-0") + day + L" 120000 1.dmp");
    }
    Leave(L"Corvane 2026-11-23 164012 1234.new.dmp");
    Leave(L"another.dmp");
    Leave(L"Corvane notes.txt");
    Leave(L"corvane.log");
    ReportCrashes();
    EXPECT_EQ(FilesIn(dumps),
              (Names{L"Corvane 2026-11-03 120000 1.dmp", L"Corvane 2026-11-04 120000 1.dmp",
                     L"Corvane 2026-11-05 120000 1.dmp", L"Corvane 2026-11-06 120000 1.dmp",
                     L"Corvane 2026-11-23 164012 1234.dmp", L"Corvane notes.txt", L"another.dmp",
                     L"corvane.log"}));
}

TEST_F(CrashReports, WithoutDumpsOrAFolderNothingIsSaid) {
    ReportCrashes();
    test::SetLocalDataDirectory(L"");
    ReportCrashes();
    test::SetLocalDataDirectory(folder.File(L"no such folder"));
    ReportCrashes();
    EXPECT_TRUE(Warnings().empty());
}

}  // namespace
}  // namespace corvane
