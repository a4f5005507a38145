// The first hour of a newcomer, by the keyboard alone, in the real program with the real stand-ins:
// after each step the file and the window are right.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "bsd/basic_ship_data.h"
#include "bsd/bsd_file.h"
#include "database/listing.h"
#include "shell/commands/commands.h"
#include "stand_ins/win32/form_control_ids.h"
#include "tests/support/support.h"
#include "tests/ui/driver.h"
#include "tests/ui/file_dialog.h"
#include "tests/ui/keyboard.h"
#include "tests/ui/screenshot.h"
#include "ui/base/control_ids.h"

namespace corvane::ui {
namespace {

using stand_ins::kFieldId;
using stand_ins::kStandInClass;
using stand_ins::kStatusId;
using test::Narrow;

struct CycleTest : testing::Test {
    Settings settings;
    Installation installation;
    std::wstring database = installation.File(L"Boreal Bay.ve2");
    Program program{installation};
    HWND main = program.Main();

    void SetUp() override {
        ASSERT_NE(main, nullptr);
        for (const wchar_t* name : {L"BsdEdit.exe", L"SectInput.exe", L"SectRule.exe"}) {
            installation.Add(name);
        }
        SetWindowPos(main, HWND_TOP, 20, 20, 900, 650, 0);
        ASSERT_TRUE(TakesKeys(main));
    }

    // ---- Keys ----------------------------------------------------------------------------------

    static bool HasTheKeys(HWND window) {
        return WaitUntil([&] { return GetForegroundWindow() == window; });
    }
    // Goes to a field of a stand-in with the letter of its label, and types over what is there. The
    // first field has the focus at the start.
    static void Fill(HWND form, int field, char letter, const std::wstring& text) {
        if (field != 0) TypeWithAlt(static_cast<WORD>(letter));
        ASSERT_TRUE(FocusBecomes(form, kFieldId + field)) << letter;
        TypeText(text);
        std::wstring shown;
        for (const wchar_t c : text) shown += c == L'\n' ? L"\r\n" : std::wstring(1, c);
        EXPECT_TRUE(TextBecomes(GetDlgItem(form, kFieldId + field), shown)) << Narrow(text);
    }

    // ---- A program of the suite ----------------------------------------------------------------

    // Waits for the stand-in that a command starts.
    HWND Started(const wchar_t* title) const {
        HWND form = nullptr;
        EXPECT_TRUE(WaitUntil([&] {
            form = FindWindowW(kStandInClass, title);
            return form != nullptr && IsWindowVisible(form);
        })) << Narrow(title);
        EXPECT_TRUE(HasTheKeys(form)) << "the keys go to another window";
        EXPECT_FALSE(IsWindowEnabled(Control(TX_DataBase))) << "the main window is not locked";
        return form;
    }
    static void SaveWithEnter(HWND form, const std::wstring& status) {
        Type({VK_RETURN});
        EXPECT_TRUE(TextBecomes(GetDlgItem(form, kStatusId), status))
            << Narrow(TextOf(GetDlgItem(form, kStatusId)));
    }
    // Escape ends it, and the main window has the keys again.
    void CloseWithEscape(HWND form) const {
        Type({VK_ESCAPE});
        ASSERT_TRUE(HasClosed(form));
        ExpectMainReady();
    }
    void ExpectMainReady() const {
        ASSERT_TRUE(WaitUntil(
            [&] { return IsWindowEnabled(Control(TX_DataBase)) && IsWindowEnabled(main); }));
        ASSERT_TRUE(HasTheKeys(main));
        EXPECT_TRUE(TextBecomes(Control(PAN_Help), L""));
    }

    // ---- What must be right
    // ----------------------------------------------------------------------

    HWND Control(int id) const { return GetDlgItem(main, id); }
    BasicShipData Data() const {
        BasicShipData bsd;
        EXPECT_TRUE(LoadBsdFromDatabase(database, bsd));
        return bsd;
    }
    // The models' names, in the list and in the file alike; the number of the selected one, or 0.
    void ExpectModels(const std::vector<std::string>& names, int selected) const {
        EXPECT_TRUE(RowCountBecomes(Control(LI_Sections), static_cast<int>(names.size())));
        EXPECT_TRUE(WaitUntil([&] { return SelectedRow(Control(LI_Sections)) == selected - 1; }));
        std::vector<std::string> inList;
        for (const Row& row : Rows(program, Control(LI_Sections))) {
            inList.push_back(Narrow(row.cells.at(0)));
        }
        EXPECT_EQ(inList, names);
        std::vector<std::string> inFile;
        for (const ModelEntry& model : ListModels(database)) inFile.push_back(Narrow(model.name));
        EXPECT_EQ(inFile, names);
    }
    void ExpectPreview() const {
        EXPECT_TRUE(WaitUntil([&] { return ShowsASection(Control(PIC_Section)); }));
    }

    // ---- The steps
    // -------------------------------------------------------------------------------

    void MakeDatabase() {
        ASSERT_TRUE(ChooseByKeys(program, 'F', 'N'));
        const FileDialog prompt = WaitForFileDialog(program);
        ASSERT_NE(prompt.window, nullptr);
        ASSERT_TRUE(HasTheKeys(prompt.window));
        TypeText(L"Boreal Bay");
        ASSERT_TRUE(WaitUntil([&] { return NameIn(prompt) == L"Boreal Bay"; }));
        Type({VK_RETURN});
        ASSERT_TRUE(HasClosed(prompt.window));
        EXPECT_TRUE(TextBecomes(Control(TX_DataBase), database));
        EXPECT_TRUE(TextBecomes(main, L"Corvane - Boreal Bay.ve2 - BOREAL B"));
        EXPECT_TRUE(TextBecomes(Control(PAN_Help),
                                L"Next: press Basic Data and enter length, breadth, depth and "
                                L"block coefficient..."));
        EXPECT_EQ(Narrow(Data().Titles(5).Trimmed()), "BOREAL B");
        EXPECT_FALSE(IsBsdDefined(Data()));
        ExpectModels({}, 0);
    }

    void EnterBasicData() {
        ASSERT_TRUE(ChooseByKeys(program, 'B', 'O'));
        const HWND form = Started(L"Basic Ship Data (stand-in)");
        Fill(form, 0, 'D', L"MV Boreal Bay");
        Fill(form, 3, 'L', L"180");
        Fill(form, 4, 'B', L"30");
        Fill(form, 5, 'P', L"16.5");
        Fill(form, 6, 'R', L"11");
        Fill(form, 8, 'O', L"0.8");
        Fill(form, 11, 'Z', L"20 0.7\n240 0.8");
        // In the lines Enter is a line end; Alt+S saves from everywhere.
        TypeWithAlt('S');
        EXPECT_TRUE(
            TextBecomes(GetDlgItem(form, kStatusId), L"Saved: Basic Ship Data, in Boreal Bay.ve2"));
        CloseWithEscape(form);
        const BasicShipData bsd = Data();
        EXPECT_EQ(Narrow(bsd.Titles(1).Trimmed()), "MV Boreal Bay");
        EXPECT_EQ(bsd.MainData(1), 180);
        EXPECT_EQ(bsd.MainData(3), 16.5F);
        EXPECT_EQ(bsd.FrameNumbers(2), 240);
        EXPECT_TRUE(IsBsdDefined(bsd));
    }

    void CreateSection() {
        ASSERT_TRUE(ChooseByKeys(program, 'C', 'S'));
        const HWND form = Started(L"Section input (stand-in)");
        Fill(form, 0, 'N', L"Hold 3");
        SaveWithEnter(form, L"Saved: section 1, Hold 3, in Boreal Bay.ve2");
        CloseWithEscape(form);
        ExpectModels({"Hold 3"}, 1);
        ExpectPreview();
        EXPECT_TRUE(TextBecomes(Control(LB_X), L"X = 90 m"));
    }

    void CopyIt() {
        ASSERT_TRUE(ChooseByKeys(program, 'S', 'C'));
        const HWND box = program.Window(L"InputBox");
        ASSERT_NE(box, nullptr);
        ASSERT_TRUE(HasTheKeys(box));
        TypeText(L"Hold 4");
        Type({VK_RETURN});
        ASSERT_TRUE(HasClosed(box));
        ExpectMainReady();
        ExpectModels({"Hold 3", "Hold 4"}, 2);
        ExpectPreview();
    }

    void DeleteTheCopy() {
        const std::string before = test::ReadFileBytes(database);
        Type({VK_DELETE});
        const Box question = WaitForBox(program);
        ASSERT_NE(question.window, nullptr);
        ASSERT_TRUE(HasTheKeys(question.window));
        EXPECT_EQ(Message(question),
                  "Are you sure to remove Section Hold 4 from " + Narrow(database) + " ?");
        EXPECT_EQ(test::ReadFileBytes(database), before) << "not before the answer";
        Type({'Y'});
        ASSERT_TRUE(HasClosed(question.window));
        ExpectMainReady();
        // The last row has gone: nothing is selected until the user selects a row.
        ExpectModels({"Hold 3"}, 0);
        EXPECT_FALSE(ShowsASection(Control(PIC_Section)));
        EXPECT_FALSE(IsWindowEnabled(Control(BT_Rule)));
        TypeWithAlt('M');
        ASSERT_TRUE(FocusBecomes(main, LI_Sections));
        Type({VK_HOME});
        ExpectModels({"Hold 3"}, 1);
        ExpectPreview();
    }

    void CheckRules() {
        const std::string before = test::ReadFileBytes(database);
        TypeWithAlt('R');
        CloseWithEscape(Started(L"Section rules (stand-in)"));
        EXPECT_EQ(test::ReadFileBytes(database), before);
        ExpectModels({"Hold 3"}, 1);
    }

    void EditIt() {
        Type({VK_RETURN});
        const HWND form = Started(L"Section input (stand-in)");
        Fill(form, 0, 'N', L"Hold 3, frame 112");
        Fill(form, 3, 'D', L"17");
        SaveWithEnter(form, L"Saved: section 1, Hold 3, frame 112, in Boreal Bay.ve2");
        CloseWithEscape(form);
        ExpectModels({"Hold 3, frame 112"}, 1);
        ExpectPreview();
    }

    void Quit() {
        ASSERT_TRUE(ChooseByKeys(program, 'F', 'Q'));
        EXPECT_TRUE(program.HasEnded());
        EXPECT_EQ(program.ExitCode(), 0U);
        EXPECT_EQ(Narrow(Settings::Read(L"DatabasePath")), Narrow(database));
    }
};

TEST_F(CycleTest, NewcomerGoesThroughItByKeysAlone) {
    const std::pair<const char*, void (CycleTest::*)()> steps[] = {
        {"new database", &CycleTest::MakeDatabase},
        {"basic data", &CycleTest::EnterBasicData},
        {"create", &CycleTest::CreateSection},
        {"copy", &CycleTest::CopyIt},
        {"delete", &CycleTest::DeleteTheCopy},
        {"rule", &CycleTest::CheckRules},
        {"edit", &CycleTest::EditIt},
        {"quit", &CycleTest::Quit},
    };
    for (const auto& [name, step] : steps) {
        SCOPED_TRACE(name);
        (this->*step)();
        if (HasFailure()) return;
    }
}

}  // namespace
}  // namespace corvane::ui
