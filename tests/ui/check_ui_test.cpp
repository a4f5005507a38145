// File > Check database and Repair in the real program, with its menus, boxes and keys.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/ui/main_window_fixture.h"

namespace corvane::ui {
namespace {

struct ReportBoxes {
    DWORD process;
    std::vector<HWND> found;
};

BOOL CALLBACK NoteReportBox(HWND window, LPARAM parameter) {
    auto& boxes = *reinterpret_cast<ReportBoxes*>(parameter);
    wchar_t name[64] = L"";
    DWORD owner = 0;
    GetClassNameW(window, name, 64);
    GetWindowThreadProcessId(window, &owner);
    const bool isReport = name == std::wstring(kReportBoxClass);
    if (isReport && owner == boxes.process && IsWindowVisible(window)) {
        boxes.found.push_back(window);
    }
    return TRUE;
}

// The boxes of reports that are open.
std::vector<HWND> OpenReports(const Program& program) {
    ReportBoxes boxes{program.id, {}};
    EnumWindows(NoteReportBox, reinterpret_cast<LPARAM>(&boxes));
    return boxes.found;
}

// The sample ship with two models of number 2 and 3 and an identifier that is there twice; the last
// model is selected.
struct CheckUi : MainWindowFixture {
    static constexpr int kLastModel = 13;
    std::wstring path = installation.File(L"ship.ve2");
    std::string sound = Text();
    std::string damaged = sound;

    std::string Text() const { return test::ReadFileBytes(path); }
    void Replace(const std::string& from, const std::string& to) {
        const size_t place = damaged.find(from);
        ASSERT_NE(place, std::string::npos) << from;
        damaged.replace(place, from.size(), to);
    }
    void SetUp() override {
        MainWindowFixture::SetUp();
        Replace("\r\n 3 \r\nSECTION", "\r\n 2 \r\nSECTION");
        Replace("\r\n 14 \r\nTORSION", "\r\n 15 \r\nTORSION");
        Replace("\r\nAURORABAY-0005\r\n", "\r\nAURORABAY-0004\r\n");
        test::WriteFileBytes(path, damaged);
        Type({VK_END});
        ASSERT_TRUE(WaitUntil([&] { return SelectedRow(Control(LI_Sections)) == kLastModel; }));
    }
    // The box whose caption begins so; null when it does not come.
    HWND BoxOf(const std::wstring& caption) const {
        HWND box = nullptr;
        WaitUntil([&] {
            for (const HWND window : OpenReports(program)) {
                if (TextOf(window).starts_with(caption)) box = window;
            }
            return box != nullptr;
        });
        return box;
    }
    std::vector<Row> RowsOf(HWND box) const { return Rows(program, GetDlgItem(box, LI_Report)); }
    bool RowCountOfBecomes(HWND box, int count) const {
        return RowCountBecomes(GetDlgItem(box, LI_Report), count);
    }
    static void PressIn(HWND box, int button) {
        PostMessageW(GetDlgItem(box, button), BM_CLICK, 0, 0);
    }
    // Checks the database, and shows what Repair would change.
    void ShowChanges(HWND& check, HWND& changes) const {
        Choose(main, ME_FileCheck);
        check = BoxOf(L"Check of ship.ve2");
        ASSERT_NE(check, nullptr);
        PressIn(check, BT_ReportAction);
        changes = BoxOf(L"Repair of ship.ve2");
        ASSERT_NE(changes, nullptr);
    }
};

TEST_F(CheckUi, ReportHasARowForEachThingThatIsWrong) {
    Choose(main, ME_FileCheck);
    const HWND box = BoxOf(L"Check of ship.ve2");
    ASSERT_NE(box, nullptr);
    const std::vector<Row> rows = RowsOf(box);
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0].cells[0], L"Fault");
    EXPECT_EQ(rows[0].cells[1], L"615");
    EXPECT_EQ(rows[0].cells[2], L"2 Hold 6, frame 91");
    EXPECT_EQ(rows[0].cells[3], L"The model's number 2 is also that of the model in line 355.");
    EXPECT_EQ(rows[0].icon, 0);
    EXPECT_EQ(rows[1].cells[0], L"Warning");
    for (const wchar_t* rule :
         {L"Number twice: ", L"Identifier twice: ", L"Number out of order: "}) {
        EXPECT_TRUE(WaitUntil([&] {
            return TextOf(GetDlgItem(box, TX_ReportDetails)).starts_with(rule);
        })) << test::Narrow(rule);
        PressKey(FocusOf(box), VK_DOWN);
    }
    EXPECT_EQ(Text(), damaged);
    PressKey(FocusOf(box), VK_ESCAPE);
    EXPECT_TRUE(HasClosed(box));
    EXPECT_TRUE(WaitUntil([&] {
        return TextOf(Control(PAN_Help)).ends_with(L"checked: faults: 1, warnings: 2, notes: 0");
    }));
}

TEST_F(CheckUi, RepairIsShownDoneSeenInTheListAndUndone) {
    HWND check = nullptr;
    HWND changes = nullptr;
    ASSERT_NO_FATAL_FAILURE(ShowChanges(check, changes));
    const std::vector<Row> rows = RowsOf(changes);
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0].cells[0], L"Number of a model");
    EXPECT_EQ(rows[0].cells[3], L"2");
    EXPECT_EQ(rows[0].cells[4], L"3");
    EXPECT_EQ(Text(), damaged);
    ASSERT_TRUE(PressButton(changes, BT_ReportAction));
    ASSERT_TRUE(RowCountOfBecomes(check, 0));
    EXPECT_TRUE(TextOf(GetDlgItem(check, LB_Report)).starts_with(L"Nothing is wrong"));
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(check, BT_ReportAction)));
    ASSERT_TRUE(PressButton(check, IDCANCEL));
    // The numbers are in the list, and the same model is selected.
    const std::vector<Row> models = Rows(program, Control(LI_Sections));
    EXPECT_EQ(models.at(2).cells[2], L" 3");
    EXPECT_EQ(models.at(13).cells[2], L"14");
    EXPECT_EQ(SelectedRow(Control(LI_Sections)), kLastModel);
    EXPECT_NE(Text(), damaged);
    EXPECT_EQ(Text().find("\r\n 15 \r\nTORSION"), std::string::npos);
    ASSERT_TRUE(TakesKeys(main));
    TypeWithControl('Z');
    // While it is put back, the file cannot be read.
    EXPECT_TRUE(
        WaitUntil([&] { return TextOf(Control(PAN_Help)) == L"Undone: Repair of the database"; }));
    EXPECT_EQ(Text(), damaged);
}

TEST_F(CheckUi, CancelledQuestionChangesNothing) {
    HWND check = nullptr;
    HWND changes = nullptr;
    ASSERT_NO_FATAL_FAILURE(ShowChanges(check, changes));
    ASSERT_TRUE(PressButton(changes, IDCANCEL));
    EXPECT_EQ(RowsOf(check).size(), 3U);
    EXPECT_EQ(Text(), damaged);
    ASSERT_TRUE(PressButton(check, IDCANCEL));
}

TEST_F(CheckUi, DatabaseThatAnotherProgramChangesDuringTheQuestionIsNotRepaired) {
    HWND check = nullptr;
    HWND changes = nullptr;
    ASSERT_NO_FATAL_FAILURE(ShowChanges(check, changes));
    test::WriteFileBytes(path, damaged + "\r\n");
    PressIn(changes, BT_ReportAction);
    const Box box = WaitForBox(program);
    EXPECT_NE(box.text.find(L"since it was checked"), std::wstring::npos);
    ASSERT_TRUE(Press(box, IDOK));
    EXPECT_EQ(Text(), damaged + "\r\n");
    ASSERT_TRUE(PressButton(check, IDCANCEL));
}

TEST_F(CheckUi, ReadOnlyDatabaseIsRefusedBeforeTheQuestion) {
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY);
    Choose(main, ME_FileCheck);
    const HWND check = BoxOf(L"Check of ship.ve2");
    ASSERT_NE(check, nullptr);
    PressIn(check, BT_ReportAction);
    const Box box = WaitForBox(program);
    EXPECT_EQ(OpenReports(program).size(), 1U);
    ASSERT_TRUE(Press(box, IDOK));
    EXPECT_EQ(RowsOf(check).size(), 3U);
    ASSERT_TRUE(PressButton(check, IDCANCEL));
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(Text(), damaged);
}

TEST_F(CheckUi, ReportIsSavedAsText) {
    Choose(main, ME_FileCheck);
    const HWND check = BoxOf(L"Check of ship.ve2");
    ASSERT_NE(check, nullptr);
    const std::wstring saved = installation.File(L"report.txt");
    PressIn(check, BT_SaveReport);
    ASSERT_TRUE(AnswerFilePrompt(program, saved));
    ASSERT_TRUE(WaitUntil([&] { return std::filesystem::exists(saved); }));
    EXPECT_TRUE(WaitUntil([&] { return IsWindowEnabled(check) != FALSE; }));
    EXPECT_NE(test::ReadFileBytes(saved).find("\r\nFault\t615\t2 Hold 6, frame 91\t"),
              std::string::npos);
    ASSERT_TRUE(PressButton(check, IDCANCEL));
}

}  // namespace
}  // namespace corvane::ui
