#include "shell/left_overs.h"

#include <gtest/gtest.h>

#include "platform/system.h"
#include "report/reporters.h"
#include "shell/commands/file_commands.h"
#include "shell/commands/section_commands.h"
#include "tests/shell/command_support.h"

namespace corvane {
namespace {

using test::Before;
using test::FakePrompt;
using test::Narrow;
using test::ReadFileBytes;
using test::RecordedReports;
using test::WriteFileBytes;

struct LeftOvers : test::CommandTest {
    std::wstring leftOver = File(L"CorA1F2.tmp");
    std::string text;

    LeftOvers() {
        MakeOpen(L"ship.ve2", {ModelKind::kSection, ModelKind::kSection});
        text = ReadFileBytes(File(L"ship.ve2"));
    }
};

TEST_F(LeftOvers, IsReportedWhenTheDatabaseBesideItIsOpenedAndOnlyOnce) {
    WriteFileBytes(leftOver, text);
    system::FileStamp stamp;
    ASSERT_EQ(system::GetFileStamp(leftOver, stamp), system::kErrorNone);
    const system::LocalTime time = system::LocalTimeOf(stamp.modified);
    OpenFile(File(L"ship.ve2"));
    const std::wstring line = L"'" + leftOver + L"', " + system::ShortDateText(time) + L' ' +
                              system::LongTimeText(time) + L", " + std::to_wstring(text.size()) +
                              L" bytes";
    EXPECT_EQ(Warnings(), std::vector<std::string>{
                              Narrow(BoxText(kMsgLeftOvers, {std::wstring(L"ship.ve2"), line}))});
    OpenFile(File(L"ship.ve2"));
    EXPECT_EQ(Warnings().size(), 1U);
    EXPECT_EQ(ReadFileBytes(leftOver), text);
}

TEST_F(LeftOvers, TimeIsThatOfTheLastWrite) {
    const system::LocalTime before = system::Now();
    WriteFileBytes(leftOver, text);
    const system::LocalTime after = system::Now();
    system::FileStamp stamp;
    ASSERT_EQ(system::GetFileStamp(leftOver, stamp), system::kErrorNone);
    const auto minutes = [](const system::LocalTime& time) {
        return ((time.year * 12 + time.month) * 31 + time.day) * 1440 + time.hour * 60 +
               time.minute;
    };
    const int written = minutes(system::LocalTimeOf(stamp.modified));
    EXPECT_GE(written, minutes(before));
    EXPECT_LE(written, minutes(after));
}

TEST_F(LeftOvers, IsReportedBeforeAnEditAndNotWhenTheListIsReadAgain) {
    WriteFileBytes(leftOver, text);
    RefreshMainWindow();
    EXPECT_TRUE(Warnings().empty());
    ME_SectionRemove_Click();
    EXPECT_TRUE(OnlyWarning(Narrow(leftOver)));
    ME_SectionCopy_Click();
    EXPECT_EQ(Warnings().size(), 1U);
}

TEST_F(LeftOvers, SeveralAreInOneBoxAndALaterOneInAnother) {
    WriteFileBytes(leftOver, text);
    WriteFileBytes(File(L"COR7.TMP"), text.substr(0, text.size() / 2));
    ReportLeftOvers(shell.database.path);
    EXPECT_TRUE(OnlyWarning(Narrow(leftOver)));
    EXPECT_TRUE(OnlyWarning(Narrow(File(L"COR7.TMP"))));
    RecordedReports::events.clear();
    WriteFileBytes(File(L"Cor12.tmp"), text);
    ReportLeftOvers(shell.database.path);
    EXPECT_TRUE(OnlyWarning(Narrow(File(L"Cor12.tmp"))));
    EXPECT_FALSE(OnlyWarning(Narrow(leftOver)));
}

TEST_F(LeftOvers, OtherFilesAreNot) {
    WriteFileBytes(File(L"Corsica.tmp"), text);
    WriteFileBytes(File(L"Cor.tmp"), text);
    WriteFileBytes(File(L"CorA1F2.ve2"), text);
    WriteFileBytes(File(L"velA1F2.tmp"), text);
    WriteFileBytes(File(L"CorA1F3.tmp"), "a file of another program");
    WriteFileBytes(File(L"CorA1F4.tmp"), "");
    ASSERT_EQ(system::MakeDirectory(File(L"CorA1F5.tmp")), system::kErrorNone);
    ReportLeftOvers(shell.database.path);
    EXPECT_TRUE(Warnings().empty());
}

TEST_F(LeftOvers, FileThatIsBeingWrittenIsNotYet) {
    system::File file;
    ASSERT_EQ(system::CreateNewForWriting(leftOver, file), system::kErrorNone);
    ASSERT_EQ(system::WriteBytes(file, text.data(), text.size()), system::kErrorNone);
    ReportLeftOvers(shell.database.path);
    EXPECT_TRUE(Warnings().empty());
    system::CloseFile(file);
    ReportLeftOvers(shell.database.path);
    EXPECT_TRUE(OnlyWarning(Narrow(leftOver)));
}

TEST_F(LeftOvers, IsNotOpenedAsTheDatabaseUntilItHasAnotherName) {
    WriteFileBytes(leftOver, text);
    const Before before;
    OpenFile(leftOver);
    EXPECT_EQ(Warnings(), std::vector<std::string>{Narrow(BoxText(kMsgIsLeftOver, {leftOver}))});
    EXPECT_TRUE(before.IsUnchanged());
    const FakePrompt prompt{leftOver};
    ME_FileOpen_Click();
    EXPECT_EQ(Warnings().size(), 2U);
    EXPECT_EQ(shell.database.path, before.databasePath);
    ASSERT_EQ(system::RenameToNewName(leftOver, File(L"found.ve2")), system::kErrorNone);
    OpenFile(File(L"found.ve2"));
    EXPECT_EQ(shell.database.path, File(L"found.ve2"));
    EXPECT_EQ(Warnings().size(), 2U);
}

}  // namespace
}  // namespace corvane
