// The real program while other programs change its database's file, how it opens files, and how it
// comes back at the next start.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "files/paths.h"
#include "tests/ui/main_window_fixture.h"
#include "tests/ui/screenshot.h"

namespace corvane::ui {
namespace {

using test::Narrow;

struct FilesTest : MainWindowFixture {
    std::wstring path = installation.File(L"ship.ve2");

    // Something else is in front, and then the window is activated again.
    void Activate(void (*meanwhile)(const std::wstring& path)) const {
        Choose(main, ME_HelpAbout);
        const HWND about = program.Window(L"FM_About");
        ASSERT_NE(about, nullptr);
        meanwhile(path);
        ASSERT_TRUE(PressButton(about, IDOK));
    }
    // The name of the selected row.
    std::string Selected() const {
        for (const Row& row : Rows(program, Control(LI_Sections))) {
            if (row.selected) return Narrow(row.cells[0]);
        }
        return "none";
    }
    bool StatusBecomes(const wchar_t* text) const { return TextBecomes(Control(PAN_Help), text); }
};

// Each model's first line.
constexpr std::string_view kMarker = "====== CORVANE MODEL ======";

// Removes the first model of the sample, whose number the others then have.
void RemoveFirstModel(const std::wstring& path) {
    std::string text = test::ReadFileBytes(path);
    const size_t first = text.find(kMarker);
    text.erase(first, text.find(kMarker, first + 1) - first);
    for (int number = 2; number <= 14; ++number) {
        const std::string old = "\r\n " + std::to_string(number) + " \r\n";
        const size_t block = text.find(old, first);
        text.replace(block, old.size(), "\r\n " + std::to_string(number - 1) + " \r\n");
    }
    test::WriteFileBytes(path, text);
}

TEST_F(FilesTest, ActivationShowsWhatAnotherProgramHasChanged) {
    Type({VK_DOWN, VK_DOWN});
    ASSERT_TRUE(ShowsPosition(L"X = 68.7 m"));
    Activate(RemoveFirstModel);
    EXPECT_TRUE(RowCountBecomes(Control(LI_Sections), 13));
    EXPECT_EQ(Selected(), "Hold 6, frame 91") << "the same model, with another number";
    EXPECT_TRUE(StatusBecomes(L"'ship.ve2' has changed and has been read again"));
    EXPECT_TRUE(ShowsPosition(L"X = 68.7 m"));
}

TEST_F(FilesTest, CommandMeansTheSelectedModelAfterAChange) {
    Type({VK_DOWN});
    ASSERT_TRUE(ShowsPosition(L"X = 44.7 m"));
    RemoveFirstModel(path);
    Type({VK_DELETE});
    const Box box = WaitForBox(program);
    EXPECT_NE(Narrow(box.text).find("Hold 7, frame 61"), std::string::npos) << Narrow(box.text);
    EXPECT_TRUE(Press(box, IDNO));
}

TEST_F(FilesTest, FileThatHasGoneGreysItsRowsUntilItComesBack) {
    Activate([](const std::wstring& ship) { MoveFileW(ship.c_str(), (ship + L".away").c_str()); });
    EXPECT_TRUE(WaitUntil([&] { return IsShown(LB_WhyGone); }));
    EXPECT_EQ(Rows(program, Control(LI_Sections)).size(), 14U);
    EXPECT_TRUE(ShowsPosition(L""));
    Type({VK_DOWN, VK_DELETE});
    const Box box = WaitForBox(program);
    EXPECT_NE(Narrow(box.text).find("ship.ve2"), std::string::npos) << Narrow(box.text);
    MoveFileW((path + L".away").c_str(), path.c_str());
    EXPECT_TRUE(Press(box, IDOK));
    EXPECT_TRUE(WaitUntil([&] { return !IsShown(LB_WhyGone); }))
        << "the box's end is an activation";
    EXPECT_TRUE(ShowsPosition(L"X = 44.7 m"));
}

TEST_F(FilesTest, FileThatIsBeingWrittenIsShownWithoutABox) {
    const std::string text = test::ReadFileBytes(path);
    const size_t second = text.find(kMarker, text.find(kMarker) + 1);
    const HANDLE writer = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                      OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(writer, INVALID_HANDLE_VALUE);
    SetFilePointer(writer, static_cast<LONG>(second), nullptr, FILE_BEGIN);
    SetEndOfFile(writer);
    Activate([](const std::wstring&) {});
    EXPECT_TRUE(WaitUntil([&] {
        return TextOf(Control(PAN_Help)).find(L"Another program is writing 'ship.ve2'") == 0;
    })) << Narrow(TextOf(Control(PAN_Help)));
    EXPECT_EQ(Rows(program, Control(LI_Sections)).size(), 14U);
    CloseHandle(writer);
    Activate([](const std::wstring&) {});
    EXPECT_TRUE(RowCountBecomes(Control(LI_Sections), 1));
}

TEST_F(FilesTest, F5ReadsTheFileAgain) {
    Type({VK_F5});
    EXPECT_TRUE(StatusBecomes(L"'ship.ve2' has been read again"));
    EXPECT_EQ(Selected(), "Engine room, frame 30");
}

TEST_F(FilesTest, CaptionSaysThatTheFileIsReadOnly) {
    Activate([](const std::wstring& ship) {
        SetFileAttributesW(ship.c_str(), FILE_ATTRIBUTE_READONLY);
    });
    EXPECT_TRUE(TextBecomes(main, L"Corvane - ship.ve2 - AURORA BAY [Read-only]"));
    Activate(
        [](const std::wstring& ship) { SetFileAttributesW(ship.c_str(), FILE_ATTRIBUTE_NORMAL); });
    EXPECT_TRUE(TextBecomes(main, L"Corvane - ship.ve2 - AURORA BAY"));
}

TEST_F(FilesTest, DigitInTheFileMenuOpensARecentDatabase) {
    const std::wstring other = installation.File(L"other.ve2");
    ASSERT_TRUE(CopyFileW(path.c_str(), other.c_str(), TRUE));
    Choose(main, ME_FileOpen);
    ASSERT_TRUE(AnswerFilePrompt(program, other));
    ASSERT_TRUE(TextBecomes(Control(TX_DataBase), other));
    ASSERT_TRUE(TakesKeys(main));
    TypeWithAlt('F');
    ASSERT_TRUE(MenuIsOpen(true));
    Type({'2'});
    EXPECT_TRUE(TextBecomes(Control(TX_DataBase), path));
}

// ---- The next start ----------------------------------------------------------------------------

struct NextStartTest : testing::Test {
    Settings settings;
    Installation installation;
    std::wstring path = installation.File(L"ship.ve2");

    NextStartTest() {
        CopyFileW(test::DataPath("../samples/aurora_bay.ve2").c_str(), path.c_str(), FALSE);
    }
    // One run of the program: `deed` is done with its window, which is then closed.
    void Run(const std::wstring& arguments,
             const std::function<void(const Program& program, HWND main)>& deed) const {
        const Program program(installation, arguments);
        const HWND main = program.Main();
        ASSERT_NE(main, nullptr);
        deed(program, main);
        Choose(main, ME_FileQuit);
        EXPECT_TRUE(program.HasEnded());
    }
    static RECT PlaceOf(HWND window) {
        RECT place{};
        GetWindowRect(window, &place);
        return place;
    }
};

TEST_F(NextStartTest, WindowIsWhereItWasWithDividerAndPreview) {
    RECT left{};
    LONG divider = 0;
    Run(L"ship.ve2", [&](const Program&, HWND main) {
        SetWindowPos(main, nullptr, 60, 70, 940, 650, SWP_NOZORDER);
        Send(GetDlgItem(main, SP_Sections), WM_KEYDOWN, VK_LEFT, 0);
        SendMessageW(GetDlgItem(main, OP_Preview), BM_CLICK, 0, 0);
        Send(main, WM_NULL, 0, 0);
        left = PlaceOf(main);
        divider = PlaceOf(GetDlgItem(main, SP_Sections)).left;
    });
    Run(L"", [&](const Program&, HWND main) {
        const RECT now = PlaceOf(main);
        EXPECT_TRUE(EqualRect(&now, &left)) << now.left << ' ' << now.top << ' ' << now.right << ' '
                                            << now.bottom << " not " << left.left;
        EXPECT_EQ(PlaceOf(GetDlgItem(main, SP_Sections)).left, divider);
        EXPECT_EQ(SendMessageW(GetDlgItem(main, OP_Preview), BM_GETCHECK, 0, 0), BST_UNCHECKED);
    });
}

TEST_F(NextStartTest, MaximisedWindowIsMaximisedAgain) {
    Run(L"ship.ve2", [](const Program&, HWND main) {
        ShowWindow(main, SW_MAXIMIZE);
        EXPECT_TRUE(WaitUntil([&] { return IsZoomed(main) != FALSE; }));
    });
    Run(L"", [](const Program&, HWND main) {
        EXPECT_TRUE(WaitUntil([&] { return IsZoomed(main) != FALSE; }));
    });
}

TEST_F(NextStartTest, MinimisedWindowIsNotMinimisedAgain) {
    Run(L"ship.ve2", [](const Program&, HWND main) {
        ShowWindow(main, SW_MINIMIZE);
        EXPECT_TRUE(WaitUntil([&] { return IsIconic(main) != FALSE; }));
    });
    Run(L"", [](const Program&, HWND main) { EXPECT_FALSE(IsIconic(main)); });
}

TEST_F(NextStartTest, PlaceOffAllScreensIsNotTaken) {
    for (const auto& [key, value] : {std::pair{L"Left", L"-9000"},
                                     {L"Top", L"9000"},
                                     {L"Width", L"900"},
                                     {L"Height", L"600"}}) {
        WritePrivateProfileStringW(L"Corvane window", key, value, L"Corvane.ini");
    }
    Run(L"ship.ve2", [](const Program&, HWND main) {
        const RECT place = PlaceOf(main);
        EXPECT_NE(MonitorFromRect(&place, MONITOR_DEFAULTTONULL), nullptr) << place.left;
    });
}

TEST_F(NextStartTest, WithoutADatabaseTheRecentOnesAreOffered) {
    Run(L"ship.ve2", [](const Program&, HWND) {});
    Settings::Write(L"DatabasePath", L"");
    Run(L"", [&](const Program&, HWND main) {
        ASSERT_TRUE(TakesKeys(main));
        EXPECT_TRUE(FocusBecomes(main, BT_StartOpen)) << FocusedControl(main);
        EXPECT_FALSE(IsWindowVisible(GetDlgItem(main, BT_StartSample))) << "it is not there";
        const HWND recent = GetDlgItem(main, BT_StartRecent);
        EXPECT_TRUE(IsWindowVisible(recent));
        Type({VK_TAB, VK_TAB});
        EXPECT_TRUE(FocusBecomes(main, BT_StartRecent));
        Type({VK_SPACE});
        EXPECT_TRUE(TextBecomes(GetDlgItem(main, TX_DataBase), path));
        EXPECT_TRUE(FocusBecomes(main, LI_Sections));
    });
}

TEST_F(NextStartTest, SampleShipIsCopiedAndOpened) {
    CreateDirectoryW(installation.File(L"samples").c_str(), nullptr);
    const std::wstring sample = installation.File(L"samples\\aurora_bay.ve2");
    ASSERT_TRUE(MoveFileW(path.c_str(), sample.c_str()));
    Run(L"", [&](const Program& program, HWND main) {
        const HWND button = GetDlgItem(main, BT_StartSample);
        ASSERT_TRUE(IsWindowVisible(button));
        PostMessageW(button, BM_CLICK, 0, 0);
        ASSERT_TRUE(AnswerFilePrompt(program, installation.File(L"mine.ve2")));
        EXPECT_TRUE(RowCountBecomes(GetDlgItem(main, LI_Sections), 14));
        EXPECT_EQ(Narrow(TextOf(GetDlgItem(main, TX_DataBase))),
                  Narrow(installation.File(L"mine.ve2")));
    });
}

// ---- Divider -----------------------------------------------------------------------------------

TEST_F(FilesTest, DoubleClickTakesTheDividerBack) {
    const RECT first = Place(SP_Sections);
    Send(Control(SP_Sections), WM_KEYDOWN, VK_LEFT, 0);
    const RECT moved = Place(SP_Sections);
    ASSERT_LT(moved.left, first.left);
    DoubleClick({(moved.left + moved.right) / 2, (moved.top + moved.bottom) / 2});
    EXPECT_TRUE(WaitUntil([&] { return Place(SP_Sections).left == first.left; }));
}

TEST_F(FilesTest, GripIsSeenOnTheDivider) {
    EXPECT_TRUE(WaitUntil([&] {
        const Picture picture = CopyScreen(Place(SP_Sections));
        const COLORREF shadow = GetSysColor(COLOR_BTNSHADOW);
        const uint32_t wanted = static_cast<uint32_t>(GetRValue(shadow)) << 16 |
                                static_cast<uint32_t>(GetGValue(shadow)) << 8 | GetBValue(shadow);
        int dots = 0;
        for (const uint32_t pixel : picture.pixels) dots += pixel == wanted;
        return dots >= 5 * 4;
    }));
}

}  // namespace
}  // namespace corvane::ui
