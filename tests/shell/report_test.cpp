// Reports: their text, copied and saved.
#include "shell/report.h"

#include <gtest/gtest.h>

#include "platform/system.h"
#include "report/messages.h"
#include "shell/commands/commands.h"
#include "tests/shell/command_support.h"

namespace corvane {
namespace {

using test::FakePrompt;
using test::FakeView;
using test::Narrow;
using test::RecordedReports;

Report TwoRows() {
    Report report;
    report.command = ME_FileVersions;
    report.title = L"Check of ship.ve2";
    report.summary = L"Models: 2\rLines: 9";
    report.fileName = L"ship check";
    report.columns = {{L"Line", L"100000", true}, {L"What is wrong", L"long"}};
    report.rows = {{{L"7", L"The \xE9nd\tis missing"}, L"Nobody reads it.\rRepair it."},
                   {{L"9", L"Twice"}, L""}};
    return report;
}

struct ReportTest : test::CommandTest {
    const Report report = TwoRows();
};

TEST_F(ReportTest, TextHasTitleSummaryTitlesOfColumnsAndRows) {
    EXPECT_EQ(ReportAsText(report),
              L"Check of ship.ve2\r\nModels: 2\r\nLines: 9\r\n\r\n"
              L"Line\tWhat is wrong\tDetails\r\n"
              L"7\tThe \xE9nd is missing\tNobody reads it. Repair it.\r\n"
              L"9\tTwice\t\r\n");
}

TEST_F(ReportTest, TextWithoutDetailsHasNoColumnForThem) {
    Report bare = report;
    bare.rows.front().details.clear();
    const std::wstring text = ReportAsText(bare, {1});
    EXPECT_TRUE(text.ends_with(L"\r\n\r\nLine\tWhat is wrong\r\n9\tTwice\r\n"));
}

TEST_F(ReportTest, SomeRowsOrAllAreCopied) {
    CopyReport(report, {1});
    EXPECT_EQ(FakeView::copied, ReportAsText(report, {1}));
    EXPECT_EQ(Narrow(RecordedReports::caption), "On the clipboard: 1 lines of the report");
    CopyReport(report, {});
    EXPECT_EQ(FakeView::copied, ReportAsText(report));
    EXPECT_EQ(FakeView::copiedHtml, "");
}

TEST_F(ReportTest, ClipboardOfAnotherProgramIsReported) {
    shell.view.copyText = [](const std::wstring&, const std::string&) { return false; };
    CopyReport(report, {});
    EXPECT_TRUE(OnlyWarning("Nothing was copied"));
}

TEST_F(ReportTest, SavedTextIsUtf8UnderTheProposedName) {
    const std::wstring path = File(L"report.txt");
    const FakePrompt prompt{path};
    SaveReport(report);
    EXPECT_EQ(FakePrompt::questions.at(0).proposed, L"ship check.txt");
    EXPECT_EQ(FakePrompt::questions.at(0).extension, L"txt");
    EXPECT_EQ(FakePrompt::questions.at(0).types, GetMessage(kMsgReportFiles));
    const std::string text = test::ReadFileBytes(path);
    EXPECT_TRUE(
        text.starts_with("\xEF\xBB\xBF"
                         "Check of ship.ve2\r\nModels: 2\r\n"));
    EXPECT_NE(text.find("7\tThe \xC3\xA9nd is missing\tNobody"), std::string::npos);
    EXPECT_TRUE(text.ends_with("9\tTwice\t\r\n"));
}

TEST_F(ReportTest, CancelledPromptWritesNothing) {
    const FakePrompt prompt;
    SaveReport(report);
    EXPECT_EQ(FakePrompt::questions.size(), 1U);
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(ReportTest, OpenDatabaseIsRefused) {
    MakeOpen(L"ship.ve2", {ModelKind::kSection});
    const std::wstring path = shell.database.path;
    const std::string before = test::ReadFileBytes(path);
    const FakePrompt prompt{path};
    SaveReport(report);
    EXPECT_EQ(Warnings().size(), 1U);
    EXPECT_EQ(test::ReadFileBytes(path), before);
}

TEST_F(ReportTest, ReadOnlyFileIsRefusedAndStays) {
    const std::wstring path = File(L"old.txt");
    test::WriteFileBytes(path, "old");
    system::SetReadOnly(path, true);
    const FakePrompt prompt{path};
    SaveReport(report);
    system::SetReadOnly(path, false);
    EXPECT_EQ(Warnings().size(), 1U);
    EXPECT_EQ(test::ReadFileBytes(path), "old");
}

}  // namespace
}  // namespace corvane
