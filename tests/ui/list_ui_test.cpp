// The list of models in the real program, by mouse and by keyboard.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/ui/file_dialog.h"
#include "tests/ui/main_window_fixture.h"

namespace corvane::ui {
namespace {

using test::Narrow;
using Names = std::vector<std::string>;

struct ListUiTest : MainWindowFixture {
    HWND List() const { return Control(LI_Sections); }
    HWND Head() const { return reinterpret_cast<HWND>(Send(List(), LVM_GETHEADER, 0, 0)); }

    // The numbers of the models from the top, and whether they become these.
    std::string Numbers() const {
        std::string numbers;
        for (const Row& row : Rows(program, List())) numbers += Narrow(row.cells.at(2)) + ' ';
        return numbers;
    }
    bool NumbersBecome(const std::string& numbers) const {
        return WaitUntil([&] { return Numbers() == numbers; });
    }
    // Alt+V, which opens the menu View, and the letter of a command there.
    bool ChooseInView(WORD letter) const {
        TypeWithAlt('V');
        if (!MenuIsOpen(true)) return false;
        Type({letter});
        return MenuIsOpen(false);
    }
    // Clicks the head of a column with the mouse, near its left edge; `further` right, so that two
    // clicks are not a double one.
    void ClickHead(int column, LONG further = 0) const {
        RECT place{};
        GetWindowRect(Head(), &place);
        LONG left = place.left;
        for (WPARAM i = 0; i < static_cast<WPARAM>(column); ++i) {
            left += static_cast<LONG>(Send(List(), LVM_GETCOLUMNWIDTH, i, 0));
        }
        Click({left + 14 + further, (place.top + place.bottom) / 2});
    }
};

constexpr char kFileOrder[] = " 1  2  3  4  5  6  7  8  9 10 11 12 13 14 ";

TEST_F(ListUiTest, ClicksOnAHeadSortUpDownAndBackToTheFilesOrder) {
    ASSERT_EQ(Numbers(), kFileOrder);
    ClickHead(1);
    EXPECT_TRUE(NumbersBecome(" 1 10  2  3  4 11  5  6  7  8 12  9 13 14 ")) << Numbers();
    ClickHead(1, 12);
    EXPECT_TRUE(NumbersBecome(" 9 12  8  7  6  5 11  4  3  2 10  1 13 14 ")) << Numbers();
    EXPECT_EQ(SelectedRow(List()), 11) << "the model that was selected stays so";
    ClickHead(1, 24);
    EXPECT_TRUE(NumbersBecome(kFileOrder)) << Numbers();
    EXPECT_EQ(SelectedRow(List()), 0);
}

TEST_F(ListUiTest, AltShiftAndArrowsSort) {
    TypeWithAltShift(VK_RIGHT);
    EXPECT_TRUE(NumbersBecome("12 11 10  1  9  8  7  6  4  3  2  5 14 13 ")) << Numbers();
    TypeWithAltShift(VK_RIGHT);
    TypeWithAltShift(VK_DOWN);
    EXPECT_TRUE(NumbersBecome(" 9 12  8  7  6  5 11  4  3  2 10  1 13 14 ")) << Numbers();
    EXPECT_TRUE(FocusBecomes(main, LI_Sections));
    Type({VK_HOME});
    EXPECT_TRUE(ShowsPosition(L"X = 208.7 m")) << "the menu bar has not taken the keys";
}

TEST_F(ListUiTest, MenuSortsAndEditActsOnTheModelThatIsSelected) {
    ASSERT_TRUE(ChooseInView('N'));
    ASSERT_TRUE(NumbersBecome("12 11 10  1  9  8  7  6  4  3  2  5 14 13 ")) << Numbers();
    Type({VK_HOME});
    EXPECT_TRUE(ShowsPosition(L"X = 199.1 m")) << "the collision bulkhead";
    Type({VK_DELETE});
    const Box box = WaitForBox(program);
    EXPECT_NE(Message(box).find("Collision bulkhead"), std::string::npos) << Message(box);
    ASSERT_TRUE(Press(box, IDYES));
    EXPECT_TRUE(NumbersBecome("11 10  1  9  8  7  6  4  3  2  5 13 12 ")) << Numbers();
}

TEST_F(ListUiTest, LettersFindNamesInTheOrderThatIsShown) {
    ClickHead(0);
    ASSERT_TRUE(NumbersBecome("12 11 10  1  9  8  7  6  4  3  2  5 14 13 ")) << Numbers();
    Type({'H'});
    EXPECT_TRUE(ShowsPosition(L"X = 187.9 m")) << "hold 1";
    Type({VK_END});
    EXPECT_TRUE(WaitUntil([&] { return SelectedRow(List()) == 13; }));
}

// ---- More than one selected --------------------------------------------------------------------

TEST_F(ListUiTest, ShiftAndArrowSelectModelsThatDeleteRemovesTogether) {
    TypeWithShift(VK_DOWN);
    TypeWithShift(VK_DOWN);
    EXPECT_TRUE(TextBecomes(Control(LB_Count), L"14 models, 3 selected"));
    EXPECT_TRUE(ShowsPosition(L"X = 68.7 m")) << "the line that has the focus";
    EXPECT_TRUE(WaitUntil([&] { return !IsWindowEnabled(Control(BT_Open)); }));
    Type({VK_DELETE});
    const Box box = WaitForBox(program);
    EXPECT_NE(Narrow(box.text).find("these 3 models"), std::string::npos) << Narrow(box.text);
    ASSERT_TRUE(Press(box, IDYES));
    EXPECT_TRUE(RowCountBecomes(List(), 11));
    EXPECT_EQ(SelectedRow(List()), 0);
    EXPECT_TRUE(ShowsPosition(L"X = 92.7 m"));
    EXPECT_TRUE(TextBecomes(Control(LB_Count), L"11 models"));
    Choose(main, ME_EditUndo);
    EXPECT_TRUE(RowCountBecomes(List(), 14));
}

TEST_F(ListUiTest, ControlAndClickAddAModel) {
    RECT head{};
    GetWindowRect(Head(), &head);
    const LONG height = head.bottom - head.top;
    Click({head.left + 60, head.bottom + height / 3});
    ClickWithControl({head.left + 60, head.bottom + 2 * height});
    EXPECT_TRUE(TextBecomes(Control(LB_Count), L"14 models, 2 selected"));
    // Not where the last click was, or it were a double one.
    ClickWithControl({head.left + 90, head.bottom + 2 * height});
    EXPECT_TRUE(TextBecomes(Control(LB_Count), L"14 models"));
    EXPECT_TRUE(WaitUntil([&] { return IsWindowEnabled(Control(BT_Open)) != FALSE; }));
    EXPECT_TRUE(ShowsPosition(L"X = 20.7 m"));
}

// ---- The filter --------------------------------------------------------------------------------

struct FilterUiTest : ListUiTest {
    bool CountBecomes(const wchar_t* text) const { return TextBecomes(Control(LB_Count), text); }
};

TEST_F(FilterUiTest, WordsThatAreTypedLeaveTheirModels) {
    EXPECT_TRUE(CountBecomes(L"14 models"));
    TypeWithControl('F');
    ASSERT_TRUE(FocusBecomes(main, TX_Filter));
    TypeText(L"bhd");
    EXPECT_TRUE(NumbersBecome("10 11 12 ")) << Numbers();
    EXPECT_TRUE(CountBecomes(L"3 of 14 models"));
    EXPECT_EQ(SelectedRow(List()), -1);
    EXPECT_TRUE(ShowsPosition(L"")) << "the section that was selected is not shown";
    EXPECT_FALSE(IsWindowEnabled(Control(BT_Open)));
    TypeText(L" x>100");
    EXPECT_TRUE(NumbersBecome("11 12 ")) << Numbers();
    EXPECT_EQ(FocusedControl(main), TX_Filter) << "the user goes on typing";
}

TEST_F(FilterUiTest, EscShowsAllModelsAndTheOneThatWasSelected) {
    Type({VK_DOWN});
    ASSERT_TRUE(ShowsPosition(L"X = 44.7 m"));
    TypeWithAlt('N');
    ASSERT_TRUE(FocusBecomes(main, TX_Filter));
    TypeText(L"torsion");
    ASSERT_TRUE(NumbersBecome("13 14 ")) << Numbers();
    Type({VK_ESCAPE});
    EXPECT_TRUE(NumbersBecome(kFileOrder)) << Numbers();
    EXPECT_TRUE(FocusBecomes(main, LI_Sections));
    EXPECT_TRUE(ShowsPosition(L"X = 44.7 m"));
    EXPECT_EQ(SelectedRow(List()), 1);
    EXPECT_EQ(TextOf(Control(TX_Filter)), L"");
}

TEST_F(FilterUiTest, EnterAndTheDownArrowGoToTheListThatIsLeft) {
    for (const WORD key : {WORD{VK_RETURN}, WORD{VK_DOWN}}) {
        TypeWithAlt('N');
        ASSERT_TRUE(FocusBecomes(main, TX_Filter));
        Type({VK_END});
        TypeText(L" fr 121");
        ASSERT_TRUE(NumbersBecome(" 4 ")) << Numbers();
        Type({key});
        EXPECT_TRUE(FocusBecomes(main, LI_Sections));
        EXPECT_EQ(program.FindNow(L"#32770"), nullptr) << "no command has run";
    }
    Type({VK_HOME});
    EXPECT_TRUE(ShowsPosition(L"X = 92.7 m"));
}

// ---- The next start ----------------------------------------------------------------------------

struct KeptListTest : testing::Test {
    Settings settings;
    Installation installation;
    const std::wstring path = installation.File(L"ship.ve2");

    KeptListTest() {
        CopyFileW(test::DataPath("../samples/aurora_bay.ve2").c_str(), path.c_str(), FALSE);
    }
    static LRESULT Width(HWND list, int column) {
        return Send(list, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0);
    }
    // Drags the right edge of a column's head.
    static void DragEdge(HWND list, int column, LONG distance) {
        const auto head = reinterpret_cast<HWND>(Send(list, LVM_GETHEADER, 0, 0));
        RECT place{};
        GetWindowRect(head, &place);
        POINT edge{place.left, (place.top + place.bottom) / 2};
        for (int i = 0; i <= column; ++i) edge.x += static_cast<LONG>(Width(list, i));
        const LRESULT before = Width(list, column);
        --edge.x;
        ASSERT_TRUE(BeginDrag(head, edge));
        MoveMouse({edge.x + distance, edge.y});
        ASSERT_TRUE(EndDrag(head, {edge.x + distance, edge.y}));
        EXPECT_TRUE(WaitUntil([&] { return Width(list, column) == before + distance; }))
            << Width(list, column) << " from " << before;
    }
    static void Quit(const Program& program, HWND main) {
        PostMessageW(main, WM_CLOSE, 0, 0);
        EXPECT_TRUE(program.HasEnded());
    }
};

TEST_F(KeptListTest, ListIsAsTheUserLeftIt) {
    std::vector<LRESULT> widths;
    {
        const Program program(installation, L"\"" + path + L"\"");
        const HWND main = program.Main();
        ASSERT_TRUE(TakesKeys(main));
        const HWND list = GetDlgItem(main, LI_Sections);
        DragEdge(list, 1, 25);
        DragEdge(list, 0, -40);
        for (int i = 0; i < 5; ++i) widths.push_back(Width(list, i));
        Choose(main, ME_ViewSortX);
        Choose(main, ME_ViewDescending);
        Choose(main, ME_EditFind);
        ASSERT_TRUE(FocusBecomes(main, TX_Filter));
        TypeText(L"bhd ");
        ASSERT_TRUE(TextBecomes(GetDlgItem(main, TX_Filter), L"bhd "));
        Quit(program, main);
    }
    const Program program(installation, L"\"" + path + L"\"");
    const HWND main = program.Main();
    ASSERT_NE(main, nullptr);
    const HWND list = GetDlgItem(main, LI_Sections);
    EXPECT_EQ(TextOf(GetDlgItem(main, TX_Filter)), L"bhd ");
    std::string numbers;
    for (const Row& row : Rows(program, list)) numbers += Narrow(row.cells.at(2));
    EXPECT_EQ(numbers, "121110");
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(Width(list, i), widths[static_cast<size_t>(i)]) << i;
    }
}

// ---- To other programs -------------------------------------------------------------------------

// The bytes on the clipboard in a format that a program has registered; empty without them.
std::string ClipboardBytes(const wchar_t* name) {
    std::string bytes;
    if (OpenClipboard(nullptr) == 0) return bytes;
    const HANDLE memory = GetClipboardData(RegisterClipboardFormatW(name));
    if (memory != nullptr) {
        bytes.assign(static_cast<const char*>(GlobalLock(memory)), GlobalSize(memory));
        GlobalUnlock(memory);
    }
    CloseClipboard();
    return bytes;
}

TEST_F(ListUiTest, ControlShiftAndCCopyTheListAsTextAndAsATable) {
    TypeWithControlShift('C');
    ASSERT_TRUE(WaitUntil([] { return ClipboardText().starts_with(L"Name\tX\tId\t"); }));
    EXPECT_NE(ClipboardText().find(L"Engine room, frame 30\t20.700\t1\tSection\t30\r\n"),
              std::wstring::npos);
    const std::string html = ClipboardBytes(L"HTML Format");
    EXPECT_NE(html.find("<td>Engine room, frame 30</td><td>20.700</td>"), std::string::npos);
}

TEST_F(ListUiTest, ListIsExportedFromTheKeyboard) {
    ASSERT_TRUE(ChooseByKeys(program, 'F', 'L'));
    const std::wstring path = installation.File(L"list.csv");
    ASSERT_TRUE(AnswerFilePrompt(program, path));
    EXPECT_TRUE(TextBecomes(Control(PAN_Help), L"14 lines of the list written to '" + path + L"'"));
    const std::string bytes = test::ReadFileBytes(path);
    EXPECT_TRUE(
        bytes.starts_with("\xEF\xBB\xBFName,X,Id,Type,Frame\r\n"
                          "\"Engine room, frame 30\",20.700,1,Section,30\r\n"))
        << bytes;
}

TEST_F(ListUiTest, ListThatCannotBeWrittenLeavesTheOldFile) {
    const std::wstring path = installation.File(L"list.csv");
    test::WriteFileBytes(path, "old");
    const HANDLE held = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    ASSERT_TRUE(ChooseByKeys(program, 'F', 'L'));
    const FileDialog dialog = WaitForFileDialog(program);
    const Box question = AnswerWithBox(program, dialog, path);
    ASSERT_TRUE(Press(question, IDYES)) << "it asks before it overwrites";
    const Box box = WaitForPlainBox(program);
    EXPECT_NE(Narrow(box.text).find("list.csv"), std::string::npos) << Narrow(box.text);
    EXPECT_TRUE(Press(box, IDOK));
    CloseHandle(held);
    EXPECT_EQ(test::ReadFileBytes(path), "old");
}

}  // namespace
}  // namespace corvane::ui
