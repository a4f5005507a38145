// The open database while other programs change, remove and write its file.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/open_database.h"
#include "tests/shell/command_support.h"
#include "tests/shell/fake_view.h"
#include "tests/shell/shown_database.h"
#include "tests/support/wrapped_system.h"

namespace corvane {
namespace {

using test::Block;
using test::DefineBsd;
using test::FakeView;
using test::Narrow;
using test::RecordedReports;
using test::WriteFileBytes;

// A section with an identifier, at x = 10 m times its number.
std::string Section(int number, const std::string& name, const std::string& identifier) {
    std::string rows = ' ' + std::to_string(10 * number) + ' ';
    for (int i = 0; i < 8; ++i) rows += "\r\n 0 ";
    return Block(number, "SECTION", name, rows + "\r\n" + identifier);
}

// A database of three sections, shown, with the second one selected.
struct ChangedDatabaseTest : testing::Test {
    test::ShownDatabase window;
    std::string head = "DATABASE\r\n";
    std::string aft = Section(1, "Aft", "ID-A");
    std::string middle = Section(2, "Middle", "ID-M");
    std::string fore = Section(3, "Fore", "ID-F");

    ChangedDatabaseTest() {
        test::FakeCatalogue::texts[kMsgDatabaseOutOfSight] = "\xA4 out of sight: \xA4";
        test::FakeCatalogue::texts[kMsgChangedByOthers] = "\xA4 changed";
        test::FakeCatalogue::texts[kMsgSelectedModelGone] = "\xA4 without \xA4";
        test::FakeCatalogue::texts[kMsgNotYetReadAgain] = "\xA4 later";
        test::FakeCatalogue::texts[kMsgReadAgain] = "\xA4 again";
        test::FakeCatalogue::texts[kMsgReadOnlyMark] = " [Read-only]";
        DefineBsd();
        window.Open(head + aft + middle + fore);
        RefreshMainWindow();
        SelectByUser(1);
        RecordedReports::events.clear();
    }
    ~ChangedDatabaseTest() override { system::SetReadOnly(shell.database.path, false); }

    static void SelectByUser(int row) {
        FakeView::selected = row;
        SelectLine(row);
    }
    static void Write(const std::string& text) { WriteFileBytes(shell.database.path, text); }
    static void Remove() { EXPECT_EQ(system::RemoveFile(shell.database.path), system::kErrorNone); }
    // The name in the row that is selected.
    static std::string Selected() {
        const auto& rows = FakeView::rows;
        return FakeView::selected < 0
                   ? "none"
                   : Narrow(rows.at(static_cast<size_t>(FakeView::selected)).name);
    }
};

TEST_F(ChangedDatabaseTest, FileThatIsTheSameIsNotRead) {
    const test::CountedReads reads;
    RefreshWhenChanged();
    EXPECT_EQ(reads.Bytes(), 0);
    EXPECT_TRUE(RecordedReports::events.empty());
}

TEST_F(ChangedDatabaseTest, ChangedFileIsReadAgainAndTheStatusLineSaysSo) {
    Write(head + aft + middle + fore + Section(4, "New", "ID-N"));
    RefreshWhenChanged();
    EXPECT_EQ(FakeView::rows.size(), 4U);
    EXPECT_EQ(RecordedReports::caption, L"ship.ve2 changed");
    EXPECT_EQ(Selected(), "Middle");
    EXPECT_FALSE(RecordedReports::Happened("focus list")) << "nobody has pressed a key";
    EXPECT_TRUE(RecordedReports::Of("warning").empty());
    RecordedReports::events.clear();
    RefreshWhenChanged();
    EXPECT_TRUE(RecordedReports::events.empty()) << "once";
}

TEST_F(ChangedDatabaseTest, SelectionFollowsTheIdentifier) {
    Write(head + Section(1, "Middle", "ID-X") + Section(2, "Aft", "ID-A") +
          Section(3, "Renamed", "ID-M"));
    RefreshWhenChanged();
    EXPECT_EQ(Selected(), "Renamed");
    EXPECT_EQ(shell.database.currentModel, 3);
    EXPECT_EQ(FakeView::position, L"X = 30 m");
}

TEST_F(ChangedDatabaseTest, SelectionFollowsNameAndKindWhereNoModelHasTheIdentifier) {
    Write(head + Block(1, "TORSION", "Middle", " 5 ") + Section(2, "Aft", "ID-A") +
          Section(3, "Middle", "ID-Z"));
    RefreshWhenChanged();
    EXPECT_EQ(FakeView::selected, 2);
    EXPECT_EQ(shell.database.currentModel, 3);
}

TEST_F(ChangedDatabaseTest, OfSeveralModelsTheOneWithTheSameNumberIsFollowed) {
    Write(head + Section(1, "One", "ID-M") + Section(2, "Two", "ID-M") +
          Section(3, "Three", "ID-M"));
    RefreshWhenChanged();
    EXPECT_EQ(Selected(), "Two");
    Write(head + Section(1, "Two", "") + Section(2, "Two", "") + Section(3, "Two", "") + fore);
    RefreshWhenChanged();
    EXPECT_EQ(FakeView::selected, 1);
}

TEST_F(ChangedDatabaseTest, NothingIsSelectedWhenTheModelHasGone) {
    Write(head + aft + Section(2, "Fore", "ID-F"));
    RefreshWhenChanged();
    EXPECT_EQ(FakeView::selected, -1);
    EXPECT_EQ(FakeView::position, L"");
    EXPECT_EQ(RecordedReports::caption, L"ship.ve2 without Middle");
    EXPECT_FALSE(IsEnabled(*FindCommand(ME_SectionRemove)));
    RefreshMainWindow();
    EXPECT_EQ(FakeView::selected, -1) << "a refresh selects no other model";
}

TEST_F(ChangedDatabaseTest, CommandRunsOnTheModelThatWasSelectedWhateverItsNumberIsNow) {
    Write(head + Section(1, "New", "ID-N") + Section(2, "Aft", "ID-A") +
          Section(3, "Middle", "ID-M"));
    RunCommand(ME_SectionRemove);
    const auto asked = RecordedReports::Of("ask irreversible");
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_NE(asked[0].find("remove Section Middle from"), std::string::npos) << asked[0];
    EXPECT_EQ(shell.database.currentModel, 3);
}

TEST_F(ChangedDatabaseTest, CommandDoesNothingWhenItsModelHasGone) {
    Write(head + aft + fore);
    RunCommand(ME_SectionRemove);
    EXPECT_TRUE(RecordedReports::Of("ask").empty());
    EXPECT_TRUE(RecordedReports::Of("warning").empty());
    EXPECT_EQ(RecordedReports::caption, L"ship.ve2 without Middle");
}

TEST_F(ChangedDatabaseTest, ShipRecordIsReadAgain) {
    const std::string block = test::ReadFileBytes(test::DataPath("golden/bsd_block.txt"));
    Write(head + block + aft + middle + fore);
    RefreshWhenChanged();
    EXPECT_NE(shell.database.bsd.MainData(1), 10.0F);
}

TEST_F(ChangedDatabaseTest, WindowThatIsLockedAndADatabaseThatWasNotListedAreLeftAlone) {
    Write(head);
    shell.locked = true;
    RefreshWhenChanged();
    shell.locked = false;
    shell.database.isListed = false;
    RefreshWhenChanged();
    EXPECT_TRUE(RecordedReports::events.empty());
    EXPECT_EQ(FakeView::rows.size(), 3U);
}

// ---- Gone --------------------------------------------------------------------------------------

TEST_F(ChangedDatabaseTest, FileThatHasGoneLeavesItsRowsAndSaysSoInTheirPlace) {
    Remove();
    RefreshWhenChanged();
    EXPECT_EQ(FakeView::rows.size(), 3U);
    EXPECT_EQ(FakeView::whyGone.find(L"ship.ve2 out of sight: "), 0U) << Narrow(FakeView::whyGone);
    EXPECT_EQ(FakeView::whyNoPicture, FakeView::whyGone);
    EXPECT_EQ(FakeView::position, L"");
    EXPECT_TRUE(RecordedReports::Of("warning").empty());
    RecordedReports::events.clear();
    RefreshWhenChanged();
    EXPECT_TRUE(RecordedReports::events.empty()) << "once";
    SelectByUser(2);
    EXPECT_EQ(FakeView::position, L"");
    EXPECT_TRUE(RecordedReports::Of("warning").empty()) << "no box for each row";
}

TEST_F(ChangedDatabaseTest, CommandOnAFileThatHasGoneSaysSo) {
    Remove();
    RunCommand(ME_SectionRemove);
    EXPECT_EQ(RecordedReports::Of("warning").size(), 1U);
    EXPECT_FALSE(FakeView::whyGone.empty());
}

TEST_F(ChangedDatabaseTest, FileThatComesBackIsReadAgain) {
    Remove();
    RefreshWhenChanged();
    SelectByUser(2);
    Write(head + aft + fore);
    RefreshWhenChanged();
    EXPECT_EQ(FakeView::whyGone, L"");
    EXPECT_EQ(FakeView::rows.size(), 2U);
    EXPECT_EQ(Selected(), "Fore");
    EXPECT_EQ(FakeView::position, L"X = 30 m");
}

TEST_F(ChangedDatabaseTest, RefreshOfAFileThatHasGoneKeepsTheRows) {
    Remove();
    RefreshMainWindow();
    EXPECT_EQ(FakeView::rows.size(), 3U);
    EXPECT_FALSE(FakeView::whyGone.empty());
    shell.database.path.clear();
    RefreshMainWindow();
    EXPECT_EQ(FakeView::whyGone, L"") << "no database is no database that has gone";
}

TEST_F(ChangedDatabaseTest, AfterALookThatTookLongActivationLooksNoMore) {
    {
        const test::SlowSystem slow;
        RefreshOnActivation();
    }
    Write(head + aft);
    RefreshOnActivation();
    EXPECT_EQ(FakeView::rows.size(), 3U);
    RefreshWhenChanged();
    EXPECT_EQ(FakeView::rows.size(), 1U) << "a command looks";
    Write(head);
    RefreshOnActivation();
    EXPECT_EQ(FakeView::rows.size(), 0U) << "and was quick";
}

// ---- Being written, read-only, and the user's own wish -----------------------------------------

TEST_F(ChangedDatabaseTest, FileThatIsBeingWrittenIsReadLater) {
    system::File file;
    ASSERT_EQ(system::CreateForWriting(shell.database.path, file), system::kErrorNone);
    const std::string text = head + aft;
    EXPECT_EQ(system::WriteBytes(file, text.data(), text.size()), system::kErrorNone);
    RefreshWhenChanged();
    EXPECT_EQ(FakeView::rows.size(), 3U);
    EXPECT_EQ(RecordedReports::caption, L"ship.ve2 later");
    EXPECT_TRUE(RecordedReports::Of("warning").empty());
    system::CloseFile(file);
    RefreshWhenChanged();
    EXPECT_EQ(FakeView::rows.size(), 1U);
}

TEST_F(ChangedDatabaseTest, CaptionSaysThatTheFileIsReadOnly) {
    EXPECT_EQ(MainWindowCaption(), L"Corvane - ship.ve2 - ");
    ASSERT_EQ(system::SetReadOnly(shell.database.path, true), system::kErrorNone);
    RefreshWhenChanged();
    EXPECT_EQ(RecordedReports::Of("title"),
              std::vector<std::string>{"Corvane - ship.ve2 -  [Read-only]"});
    ASSERT_EQ(system::SetReadOnly(shell.database.path, false), system::kErrorNone);
    RefreshWhenChanged();
    EXPECT_EQ(RecordedReports::Of("title").back(), "Corvane - ship.ve2 - ");
    EXPECT_TRUE(RecordedReports::Of("rows").empty()) << "its text is the same";
}

TEST_F(ChangedDatabaseTest, UserReadsTheSameFileAgain) {
    RefreshAtOnce();
    EXPECT_TRUE(RecordedReports::Happened("rows 3"));
    EXPECT_EQ(RecordedReports::caption, L"ship.ve2 again");
    EXPECT_EQ(Selected(), "Middle");
}

}  // namespace
}  // namespace corvane
