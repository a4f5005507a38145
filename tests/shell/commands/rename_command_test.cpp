// Section > Rename.
#include <gtest/gtest.h>

#include "database/listing.h"
#include "report/messages.h"
#include "shell/commands/section_commands.h"
#include "tests/database/sample_database.h"
#include "tests/shell/command_support.h"

namespace corvane {
namespace {

using test::FakeView;
using test::Narrow;
using test::RecordedReports;
using Events = std::vector<std::string>;

struct RenameCommandTest : testing::Test {
    FakeView screen;
    test::TemporaryFolder folder;
    std::wstring path = folder.File(L"ship.ve2");
    std::string before = test::DatabaseText(test::FiveBlocks());

    RenameCommandTest() {
        test::WriteFileBytes(path, before);
        shell.database.path = path;
        RefreshMainWindow();
        SelectLine(1);
        RecordedReports::events.clear();
    }
    static void Answer(const wchar_t* name) {
        FakeView::answerYes = true;
        FakeView::answerText = name;
    }
    std::string NameOf(size_t place) const {
        return Narrow(ListModels(shell.database.path).at(place).name);
    }
    void ExpectUntouched() const {
        EXPECT_EQ(test::ReadFileBytes(path), before);
        EXPECT_EQ(test::FilesIn(folder.path), std::vector<std::wstring>{L"ship.ve2"});
        EXPECT_EQ(shell.database.currentModel, 2);
    }
};

TEST_F(RenameCommandTest, ProposesTheNameOfTheModel) {
    ME_SectionRename_Click();
    EXPECT_EQ(RecordedReports::events,
              Events{"ask text Rename Bulkhead: " + Narrow(GetMessage(kMsgNewNameQuestion)) +
                     " [Bulkhead 40]"});
    ExpectUntouched();
}

TEST_F(RenameCommandTest, EachKindGetsItsNewNameAndStaysSelected) {
    for (const int row : {0, 1, 3}) {
        SelectLine(row);
        Answer(L"  Hold & 3 ");
        ME_SectionRename_Click();
        EXPECT_EQ(NameOf(static_cast<size_t>(row)), "Hold & 3");
        EXPECT_EQ(shell.database.currentModel, row + 1);
        EXPECT_EQ(FakeView::selected, row);
        EXPECT_EQ(shell.database.rows.at(static_cast<size_t>(row)).name, L"Hold & 3");
    }
    EXPECT_EQ(RecordedReports::Of("warning"), Events{});
    EXPECT_TRUE(RecordedReports::Happened("pointer busy"));
    EXPECT_EQ(RecordedReports::events.back(), "pointer reset");
}

TEST_F(RenameCommandTest, KeepsABackup) {
    Answer(L"Hold 3");
    ME_SectionRename_Click();
    EXPECT_EQ(test::ReadFileBytes(folder.File(L"ship.bak")), before);
}

TEST_F(RenameCommandTest, EmptyNameAndTheOldOneChangeNothing) {
    for (const wchar_t* name : {L"", L"   ", L" Bulkhead 40 "}) {
        Answer(name);
        ME_SectionRename_Click();
    }
    EXPECT_EQ(RecordedReports::Of("ask").size(), 3U);
    EXPECT_EQ(RecordedReports::events.size(), 3U);
    ExpectUntouched();
}

// Another program has removed the first model while the question was on the screen.
TEST_F(RenameCommandTest, ModelThatIsAnotherOneByNowStaysAsItIs) {
    static std::wstring file;
    file = path;
    shell.view.askText = [](const std::wstring&, const std::wstring&, std::wstring& answer) {
        std::vector<test::SampleBlock> blocks = test::FiveBlocks();
        std::swap(blocks[1].name, blocks[2].name);
        test::WriteFileBytes(file, test::DatabaseText(blocks));
        answer = L"Hold 3";
        return true;
    };
    ME_SectionRename_Click();
    EXPECT_EQ(NameOf(1), "Frame 20");
    EXPECT_EQ(RecordedReports::Of("warning"), Events{Narrow(BoxText(kMsgModelChanged, {path}))});
    EXPECT_FALSE(RecordedReports::Of("rows").empty());
}

TEST_F(RenameCommandTest, ReadOnlyDatabaseIsRenamedInACopy) {
    ASSERT_EQ(system::SetReadOnly(path, true), system::kErrorNone);
    const std::wstring other = folder.File(L"other.ve2");
    const test::FakePrompt prompt{other};
    Answer(L"Hold 3");
    ME_SectionRename_Click();
    EXPECT_EQ(test::ReadFileBytes(path), before);
    EXPECT_EQ(shell.database.path, other);
    EXPECT_EQ(NameOf(1), "Hold 3");
    EXPECT_EQ(shell.database.currentModel, 2);
}

}  // namespace
}  // namespace corvane
