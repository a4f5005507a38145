// What copies leave out is named, in a report after they have been made.
#include "shell/copy_losses.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "shell/commands/commands.h"
#include "shell/commands/file_commands.h"
#include "shell/commands/section_commands.h"
#include "shell/exchange_boxes.h"
#include "shell/open_database.h"
#include "tests/database/block_sample.h"
#include "tests/database/check_damage.h"
#include "tests/shell/command_support.h"

namespace corvane {
namespace {

using test::FakeView;
using test::ReadFileBytes;
using test::Replaced;

// The first model has a table that is not known.
std::string WithNewTable() {
    return Replaced(test::SoundDatabase(), "------------------ OPENINGS",
                    "------------------ COATINGS ------------------\r\n 1 \t 2 \r\n"
                    "------------------ OPENINGS");
}

// And its head lacks a number, so that nobody can say which line is the identifier.
std::string WithDamagedHead() {
    return Replaced(WithNewTable(), "\r\n .001 \t 6.75 \t 0 \r\n", "\r\n .001 \t 6.75 \r\n");
}

struct CopyLossesTest : test::CommandTest {
    std::vector<Report> shown;

    CopyLossesTest() {
        FakeView::answerYes = true;
        FakeView::answerText = L"A copy";
        FakeView::showReport = [this](Report& report) {
            shown.push_back(report);
            return false;
        };
    }
    void Open(const std::string& text) const {
        test::WriteFileBytes(File(L"ship.ve2"), text);
        OpenFile(File(L"ship.ve2"));
        SelectLine(0);
    }
    std::string Text() const { return ReadFileBytes(File(L"ship.ve2")); }
    // The one report, about a table of the first model.
    void ExpectTableIsNamed(const std::wstring& file) const {
        ASSERT_EQ(shown.size(), 1U);
        EXPECT_EQ(shown[0].title, L"Left out of the copies");
        EXPECT_NE(shown[0].summary.find(L"of 1 models in '" + file + L"'"), std::wstring::npos);
        ASSERT_EQ(shown[0].rows.size(), 1U);
        EXPECT_EQ(shown[0].rows[0].cells,
                  (std::vector<std::wstring>{L"Warning", L"194", L"1 Frame 100",
                                             L"The table COATINGS is not known (lines: 1)."}));
    }
};

TEST_F(CopyLossesTest, CopyThatLeavesOutATableNamesIt) {
    Open(WithDamagedHead());
    RunCommand(ME_SectionCopy);
    EXPECT_EQ(shell.database.rows.size(), 5U);
    EXPECT_EQ(Text().find("COATINGS"), Text().rfind("COATINGS"));
    ExpectTableIsNamed(L"ship.ve2");
}

TEST_F(CopyLossesTest, CopyThatIsCarriedOverNamesNothing) {
    Open(WithNewTable());
    RunCommand(ME_SectionCopy);
    EXPECT_EQ(shell.database.rows.size(), 5U);
    EXPECT_NE(Text().find("COATINGS"), Text().rfind("COATINGS"));
    EXPECT_TRUE(shown.empty());
}

TEST_F(CopyLossesTest, CopiesOfSeveralModelsNameWhatTheyLeaveOut) {
    Open(WithDamagedHead());
    FakeView::alsoSelected = {1, 2};
    RunCommand(ME_SectionCopy);
    EXPECT_EQ(shell.database.rows.size(), 7U);
    ExpectTableIsNamed(L"ship.ve2");
}

TEST_F(CopyLossesTest, ImportThatLeavesOutATableNamesIt) {
    Open(test::SoundDatabase());
    const std::wstring other = File(L"other.ve2");
    test::WriteFileBytes(other, WithDamagedHead());
    FakeView::askImport = [other](ImportChoice& choice) {
        choice = {other, ListForExchange(other)};
        return true;
    };
    RunCommand(ME_SectionImport);
    EXPECT_EQ(shell.database.rows.size(), 8U);
    ASSERT_EQ(shown.size(), 1U) << "the report of the import has it";
    EXPECT_EQ(shown[0].title, L"Import from 'other.ve2'");
    ASSERT_EQ(shown[0].rows.size(), 4U) << "every model is there";
    EXPECT_EQ(shown[0].rows[0].cells,
              (std::vector<std::wstring>{L"Frame 100", L"Section", L"Changed",
                                         L"The table COATINGS is not known (lines: 1)."}));
    EXPECT_EQ(shown[0].rows[1].cells.at(2), L"Went over");
}

TEST_F(CopyLossesTest, CopyThatFailsShowsNoReport) {
    Open(WithDamagedHead());
    const std::string before = Text();
    const test::FakePrompt prompt;  // for another file; cancelled
    system::SetReadOnly(shell.database.path, true);
    RunCommand(ME_SectionCopy);
    system::SetReadOnly(shell.database.path, false);
    EXPECT_EQ(test::FakePrompt::questions.size(), 1U);
    EXPECT_TRUE(shown.empty());
    EXPECT_EQ(Text(), before);
}

}  // namespace
}  // namespace corvane
