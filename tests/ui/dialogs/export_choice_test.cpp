// FM_Export: how a DOS database is found or made, and what the box says of it before OK.
#include <algorithm>
#include <string>
#include <vector>

#include "platform/ztutil32.h"
#include "tests/ui/dialogs/export_box_fixture.h"
#include "ui/dialogs/export_box.h"

namespace corvane {
namespace {

using test::Narrow;
using Texts = std::vector<std::string>;

constexpr int kReplace = OP_CreateNew;

struct ExportChoiceTest : test::ExportBoxFixture {};

std::wstring promptAnswer;
int16_t AnswerPrompt(char*, char*, char* buffer, int32_t, int32_t, char*) {
    const std::string answer = Narrow(promptAnswer);
    std::copy_n(answer.c_str(), answer.size() + 1, buffer);
    return -1;
}

TEST_F(ExportChoiceTest, BrowseMovesTheListsToTheFile) {
    const test::FakeFunction prompt(ZTUtilPromptForName, AnswerPrompt);
    Subfolder(L"inner");
    promptAnswer = Legacy(L"inner\\deep.vel");
    EXPECT_TRUE(Ask([](HWND window) {
        SetOption(window, BT_Browse);
        EXPECT_EQ(Items(window, FIL_Db), Texts{"deep.vel"});
        EXPECT_EQ(Selected(window, FIL_Db), 0);
        EXPECT_EQ(Count(window, LI_Sections), 9);
        PressOk(window);
    }));
    EXPECT_EQ(choice.path, promptAnswer);
}

TEST_F(ExportChoiceTest, NewDatabaseIsMadeAndChosen) {
    const test::FakeFunction prompt(ZTUtilPromptForName, AnswerPrompt);
    promptAnswer = folder.File(L"new.vel");
    EXPECT_TRUE(Ask([](HWND window) {
        SetOption(window, BT_NewLegacy);
        EXPECT_EQ(Items(window, FIL_Db), Texts{"new.vel"});
        EXPECT_EQ(Selected(window, FIL_Db), 0);
        EXPECT_FALSE(IsEnabled(window, LI_Sections));
        PressOk(window);
    }));
    EXPECT_EQ(choice.path, promptAnswer);
    EXPECT_TRUE(test::RecordedReports::Of("warning").empty());
}

TEST_F(ExportChoiceTest, DoubleClickOnAFileOrASectionAccepts) {
    const std::wstring path = Legacy(L"ship.vel");
    for (const int list : {int{FIL_Db}, int{LI_Sections}}) {
        choice.path.clear();
        const test::WhenOpen open(kExportBoxClass, [&](HWND window) {
            Choose(window, L"ship.vel");
            if (list == LI_Sections) {
                SetOption(window, kReplace);
                Select(window, LI_Sections, 3);
            }
            Notify(window, list, LBN_DBLCLK);
        });
        EXPECT_TRUE(AskExport(choice));
        EXPECT_EQ(choice.path, path);
        EXPECT_EQ(choice.slot, list == LI_Sections ? 4 : 0);
    }
}

TEST_F(ExportChoiceTest, NotesSayWhetherThereIsRoomAndThatTheShipIsAnother) {
    choice.room = L"A DOS database has room for all of it";
    Legacy(L"ship.vel");
    Ask([](HWND window) {
        EXPECT_EQ(test::TextOf(window, LB_Notes), "A DOS database has room for all of it");
        Choose(window, L"ship.vel");
        EXPECT_EQ(test::TextOf(window, LB_Notes), "A DOS database has room for all of it");
        shell.database.bsd.Titles(1).Assign(L"Borealis");
        Choose(window, L"ship.vel");
        EXPECT_NE(test::TextOf(window, LB_Notes).find("name 'Aurora Bay' instead of 'Borealis'"),
                  std::string::npos);
    });
}

}  // namespace
}  // namespace corvane
