// Start of the real program: with and without a file, the switches, a missing file, a second
// instance, and what the list then shows.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "platform/single_instance.h"
#include "shell/commands/commands.h"
#include "tests/shell/sample_models.h"
#include "tests/support/support.h"
#include "tests/ui/driver.h"
#include "ui/base/control_ids.h"

namespace corvane::ui {
namespace {

using test::kSampleModels;
using test::Narrow;
using test::SamplePath;

// A copy of the sample ship that a test may change, in the installation's folder.
std::wstring CopyOfSample(const Installation& installation, std::wstring_view name) {
    std::wstring path = installation.File(name);
    CopyFileW(SamplePath().c_str(), path.c_str(), FALSE);
    return path;
}

std::wstring Quoted(const std::wstring& path) {
    return L"\"" + path + L"\"";
}

std::wstring ControlText(HWND main, int control) {
    return TextOf(GetDlgItem(main, control));
}

struct StartTest : testing::Test {
    Settings settings;
    Installation installation;
};

TEST_F(StartTest, WithoutAFileNothingIsOpen) {
    const Program program(installation);
    const HWND main = program.Main();
    ASSERT_NE(main, nullptr);
    EXPECT_EQ(Narrow(TextOf(main)), "Corvane");
    EXPECT_EQ(Narrow(ControlText(main, TX_DataBase)), "No database selected");
    EXPECT_TRUE(Rows(program, GetDlgItem(main, LI_Sections)).empty());
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(main, LI_Sections)));
}

TEST_F(StartTest, FileOnTheCommandLineIsOpened) {
    const std::wstring path = CopyOfSample(installation, L"Aurora Bay.ve2");
    const Program program(installation, Quoted(path));
    const HWND main = program.Main();
    ASSERT_NE(main, nullptr);
    EXPECT_EQ(Narrow(TextOf(main)), "Corvane - Aurora Bay.ve2 - AURORA BAY");
    EXPECT_EQ(Narrow(ControlText(main, TX_DataBase)), Narrow(path));
    EXPECT_TRUE(IsWindowEnabled(GetDlgItem(main, LI_Sections)));
    EXPECT_EQ(Narrow(ControlText(main, PAN_Help)), "");
}

TEST_F(StartTest, ListShowsTheModelsInFileOrder) {
    const Program program(installation, Quoted(SamplePath()));
    const HWND main = program.Main();
    ASSERT_NE(main, nullptr);
    const HWND list = GetDlgItem(main, LI_Sections);
    EXPECT_EQ(ColumnTitles(program, list),
              (std::vector<std::wstring>{L"Name", L"X", L"Id", L"Type", L"Frame"}));
    const std::vector<Row> rows = Rows(program, list);
    ASSERT_EQ(rows.size(), std::size(kSampleModels));
    const char* const types[] = {"Section", "Bulkhead", "Torsion"};
    for (size_t i = 0; i < rows.size(); ++i) {
        const test::SampleModel& expected = kSampleModels[i];
        char x[20] = "";
        if (expected.x_m >= 0) std::snprintf(x, sizeof x, "%.3f", double{expected.x_m});
        EXPECT_EQ(Narrow(rows[i].cells[0]), Narrow(expected.name));
        EXPECT_EQ(Narrow(rows[i].cells[1]), x);
        EXPECT_EQ(Narrow(rows[i].cells[2]), (i < 9 ? " " : "") + std::to_string(i + 1));
        EXPECT_EQ(Narrow(rows[i].cells[3]), types[static_cast<size_t>(expected.kind)]);
        EXPECT_EQ(rows[i].icon, static_cast<int>(expected.kind)) << i;
        EXPECT_EQ(rows[i].selected, i == 0) << i;
    }
}

TEST_F(StartTest, SwitchAfterAQuotedPathIsFound) {
    const std::wstring path = CopyOfSample(installation, L"Aurora Bay.ve2");
    const Program program(installation, Quoted(path) + L" /mil");
    const HWND main = program.Main();
    ASSERT_NE(main, nullptr);
    EXPECT_EQ(Narrow(TextOf(main)), "Corvane MIL - Aurora Bay.ve2 - AURORA BAY");
}

// The first of the program's windows, from the topmost down.
HWND TopmostWindowOf(const Program& program) {
    struct Search {
        DWORD process;
        HWND found;
    } search{program.id, nullptr};
    EnumWindows(
        [](HWND window, LPARAM parameter) {
            auto& wanted = *reinterpret_cast<Search*>(parameter);
            DWORD process = 0;
            GetWindowThreadProcessId(window, &process);
            if (process != wanted.process || !IsWindowVisible(window)) return TRUE;
            wanted.found = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

TEST_F(StartTest, NoBoxAtTheStartIsHiddenByTheSplash) {
    test::WriteFileBytes(installation.File(L"notes.ve2"), "Ask the yard for the drawings.\r\n");
    const Program program(installation, L"notes.ve2");
    const Box box = WaitForBox(program);
    ASSERT_NE(box.window, nullptr);
    EXPECT_EQ(program.FindNow(L"FM_Load"), nullptr);
    EXPECT_EQ(TopmostWindowOf(program), box.window);
    RECT place{};
    GetWindowRect(box.window, &place);
    const POINT middle{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    EXPECT_EQ(GetAncestor(WindowFromPoint(middle), GA_ROOT), box.window);
    EXPECT_TRUE(Press(box, IDOK));
    EXPECT_NE(program.Main(), nullptr);
}

TEST_F(StartTest, FileOfACutOffEditIsNamedAndNotOpened) {
    const std::wstring path = CopyOfSample(installation, L"Aurora Bay.ve2");
    const std::wstring leftOver = CopyOfSample(installation, L"Cor12AB.tmp");
    const Program program(installation, Quoted(leftOver));
    const Box refused = WaitForBox(program);
    EXPECT_NE(Narrow(refused.text).find("'" + Narrow(leftOver) + "' is not a database to work in"),
              std::string::npos);
    ASSERT_TRUE(Press(refused, IDOK));
    const HWND main = program.Main();
    ASSERT_NE(main, nullptr);
    EXPECT_EQ(Narrow(ControlText(main, TX_DataBase)), "No database selected");
    const Program second(installation, Quoted(path));
    EXPECT_TRUE(second.HasEnded());
    const Box named = WaitForBox(program);
    EXPECT_NE(Narrow(named.text).find(Narrow(leftOver)), std::string::npos);
    EXPECT_EQ(Narrow(ControlText(main, TX_DataBase)), Narrow(path));
    EXPECT_TRUE(RowCountBecomes(GetDlgItem(main, LI_Sections), std::size(kSampleModels)));
    ASSERT_TRUE(Press(named, IDOK));
    EXPECT_EQ(test::ReadFileBytes(leftOver), test::ReadFileBytes(path));
}

TEST_F(StartTest, SecondInstanceGivesWayToTheFirst) {
    const Program first(installation, Quoted(SamplePath()));
    const HWND main = first.Main();
    ASSERT_NE(main, nullptr);
    ShowWindow(main, SW_MINIMIZE);
    const Program second(installation, L"/mil");
    EXPECT_TRUE(second.HasEnded());
    EXPECT_EQ(second.ExitCode(), 0U);
    EXPECT_TRUE(WaitUntil([&] { return !IsIconic(main); })) << "the running window is restored";
    EXPECT_EQ(Narrow(TextOf(main)), "Corvane - aurora_bay.ve2 - AURORA BAY");
}

TEST_F(StartTest, SecondStartHandsItsFileToTheFirst) {
    const std::wstring path = CopyOfSample(installation, L"Second ship.ve2");
    const Program first(installation);
    const HWND main = first.Main();
    ASSERT_NE(main, nullptr);
    const Program second(installation, L"'Second ship.ve2'");
    EXPECT_TRUE(second.HasEnded());
    EXPECT_TRUE(TextBecomes(GetDlgItem(main, TX_DataBase), path));
    EXPECT_TRUE(RowCountBecomes(GetDlgItem(main, LI_Sections), std::size(kSampleModels)));
}

TEST_F(StartTest, CheckOfTheFileIsShownByTheFirstAndByASecondStart) {
    CopyOfSample(installation, L"first.ve2");
    const std::wstring path = CopyOfSample(installation, L"second.ve2");
    const Program first(installation, L"/check first.ve2");
    const HWND box = first.Window(kReportBoxClass);
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(Narrow(TextOf(box)), "Check of first.ve2");
    ASSERT_TRUE(PressButton(box, IDCANCEL));
    const HWND main = first.Main();
    ASSERT_NE(main, nullptr);
    const Program second(installation, L"second.ve2 /check");
    EXPECT_TRUE(second.HasEnded());
    const HWND again = first.Window(kReportBoxClass);
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(Narrow(TextOf(again)), "Check of second.ve2");
    EXPECT_EQ(Narrow(ControlText(main, TX_DataBase)), Narrow(path));
    EXPECT_TRUE(PressButton(again, IDCANCEL));
}

TEST_F(StartTest, FileOfASecondStartWaitsForTheEndOfABox) {
    const std::wstring path = CopyOfSample(installation, L"second.ve2");
    const Program first(installation);
    const HWND main = first.Main();
    ASSERT_NE(main, nullptr);
    for (const int answer : {IDNO, IDYES}) {
        Choose(main, ME_HelpAbout);
        const HWND about = first.Window(L"FM_About");
        ASSERT_NE(about, nullptr);
        const Program second(installation, L"second.ve2");
        EXPECT_TRUE(second.HasEnded());
        EXPECT_EQ(Narrow(ControlText(main, TX_DataBase)), "No database selected");
        ASSERT_TRUE(PressButton(about, BT_Ok));
        const Box box = WaitForBox(first);
        EXPECT_EQ(Narrow(box.text),
                  "Corvane was started again with '" + Narrow(path) +
                      "' while it was at work.\r\rDo you want to open this file now?");
        ASSERT_TRUE(Press(box, answer));
        EXPECT_TRUE(TextBecomes(GetDlgItem(main, TX_DataBase),
                                answer == IDYES ? path : L"No database selected"));
    }
}

TEST_F(StartTest, FileOfASecondStartIsNamedWhileABoxIsUpBeforeTheMainWindow) {
    const std::wstring path = CopyOfSample(installation, L"second.ve2");
    const Program first(installation, L"/d");
    const Box early = WaitForBox(first);
    ASSERT_NE(early.window, nullptr);
    const Program second(installation, L"second.ve2");
    const Box box = WaitForBox(second);
    EXPECT_EQ(Narrow(box.text),
              "The file '" + Narrow(path) +
                  "' was not opened: Corvane is already running, but cannot open a file now.\r\r"
                  "Answer the box that it shows, or wait until it is ready. Then open the file "
                  "again.");
    EXPECT_EQ(Narrow(box.title), "Corvane");
    ASSERT_TRUE(Press(box, IDOK));
    EXPECT_TRUE(second.HasEnded());
    ASSERT_TRUE(Press(early, IDOK));
    EXPECT_NE(first.Main(), nullptr);
}

TEST_F(StartTest, OtherMessagesWithDataAreIgnored) {
    const Program program(installation);
    const HWND main = program.Main();
    ASSERT_NE(main, nullptr);
    constexpr ULONG_PTR kOpenFile = 0x436F7276;
    constexpr ULONG_PTR kCheckFile = 0x436F7277;
    const struct {
        ULONG_PTR mark;
        std::wstring text;
        DWORD bytes;
    } kCases[] = {{1, L"C:\\a.ve2", 18},
                  {kOpenFile, L"", 0},
                  {kOpenFile, L"C:\\a.ve2", 17},
                  {kOpenFile, L"a.ve2", 10},
                  {kOpenFile, L"\\\\.\\pipe\\a", 20},
                  {kOpenFile, L"\\\\?\\C:\\a.ve2", 26},
                  {kOpenFile, L"\\\\machine\\a", 22},
                  {kOpenFile, std::wstring(L"C:\\a\0.ve2", 10), 20},
                  {kOpenFile, L"C:\\" + std::wstring(40000, L'a'), 80006},
                  {kCheckFile, L"a.ve2", 10}};
    for (const auto& example : kCases) {
        COPYDATASTRUCT data{example.mark, example.bytes,
                            const_cast<wchar_t*>(example.text.c_str())};
        EXPECT_EQ(Send(main, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data)), FALSE);
    }
    EXPECT_EQ(Narrow(ControlText(main, TX_DataBase)), "No database selected");
}

TEST_F(StartTest, SecondStartDoesNotActivateAnotherCopysWindow) {
    // Copies below and above the right window, with the title that a start without a file has.
    const Installation copies[2];
    const Program below(copies[0]);
    const HWND belowMain = below.Main();
    const Program first(installation, Quoted(SamplePath()));
    const HWND main = first.Main();
    const Program above(copies[1]);
    const HWND aboveMain = above.Main();
    for (const HWND window : {belowMain, main, aboveMain}) {
        ASSERT_NE(window, nullptr);
        ShowWindow(window, SW_MINIMIZE);
    }
    const Program second(installation);
    EXPECT_TRUE(second.HasEnded());
    EXPECT_TRUE(WaitUntil([&] { return IsIconic(main) == FALSE; }));
    EXPECT_TRUE(IsIconic(belowMain));
    EXPECT_TRUE(IsIconic(aboveMain));
}

TEST_F(StartTest, NameHeldByAnotherProcessIsReportedAndTheStartIsOffered) {
    std::wstring file = installation.File(L"Corvane.exe");
    CharLowerBuffW(file.data(), static_cast<DWORD>(file.size()));
    const HANDLE held =
        CreateMutexW(nullptr, FALSE, (L"Local\\" + system::InstanceName(file)).c_str());
    ASSERT_NE(held, nullptr);
    for (const int answer : {IDNO, IDYES}) {
        const Program program(installation);
        const Box box = WaitForBox(program);
        ASSERT_NE(box.window, nullptr);
        EXPECT_EQ(Narrow(box.title), "Corvane");
        EXPECT_EQ(Narrow(box.text).rfind("Corvane is already running, but it shows no window.", 0),
                  0U);
        ASSERT_TRUE(Press(box, answer));
        EXPECT_EQ(program.Main() != nullptr, answer == IDYES);
        EXPECT_EQ(program.HasEnded(0), answer == IDNO);
    }
    CloseHandle(held);
}

}  // namespace
}  // namespace corvane::ui
