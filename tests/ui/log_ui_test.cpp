// The log of the real program, and Help > Open log folder.
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "shell/commands/commands.h"
#include "tests/shell/sample_models.h"
#include "tests/support/support.h"
#include "tests/ui/driver.h"
#include "ui/base/control_ids.h"

namespace corvane::ui {
namespace {

using test::Narrow;

constexpr char kSample[] = "../samples/aurora_bay.ve2";

struct LogUi : testing::Test {
    Settings settings;
    Installation installation;

    std::wstring CopyOfSample() const {
        std::wstring path = installation.File(L"ship.ve2");
        CopyFileW(test::DataPath(kSample).c_str(), path.c_str(), FALSE);
        return path;
    }
    static std::vector<std::string> LinesOf(const std::wstring& path) {
        std::istringstream log(test::ReadFileBytes(path));
        std::vector<std::string> lines;
        for (std::string line; std::getline(log, line);) lines.push_back(line);
        return lines;
    }
    // Whether a line ends in this.
    static bool Has(const std::vector<std::string>& lines, const std::string& end) {
        for (const std::string& line : lines) {
            if (line.ends_with(end + "\r")) return true;
        }
        return false;
    }
    static void Quit(const Program& program, HWND main) {
        PostMessageW(main, WM_CLOSE, 0, 0);
        ASSERT_TRUE(program.HasEnded());
    }
};

TEST_F(LogUi, HasTheWholeRunAndNoNameOfAModel) {
    const std::wstring ship = CopyOfSample();
    const Program program(installation, L"\"" + ship + L"\"");
    const HWND main = program.Main();
    ASSERT_NE(main, nullptr);
    Choose(main, ME_SectionRemove);
    ASSERT_TRUE(Press(WaitForBox(program), IDYES));
    ASSERT_TRUE(RowCountBecomes(GetDlgItem(main, LI_Sections), 13));
    Quit(program, main);
    const std::wstring path = installation.File(L"Corvane\\corvane.log");
    const std::vector<std::string> lines = LinesOf(path);
    for (const std::string& line : lines) {
        EXPECT_EQ(line.find(" " + std::to_string(program.id) + " "), 19U) << line;
    }
    EXPECT_NE(lines.at(0).find(" start Corvane 1.0 (r0), "), std::string::npos);
    EXPECT_TRUE(Has(lines, " start GrVelk Data 2.002"));
    EXPECT_TRUE(Has(lines, " open " + Narrow(ship)));
    EXPECT_TRUE(Has(lines, " command ME_SectionRemove"));
    EXPECT_TRUE(Has(lines, " write " + Narrow(ship)));
    EXPECT_TRUE(lines.back().ends_with(" end by the user\r"));
    for (const test::SampleModel& model : test::kSampleModels) {
        EXPECT_EQ(test::ReadFileBytes(path).find(Narrow(model.name)), std::string::npos);
    }
}

TEST_F(LogUi, PortableProgramHasItBesideItself) {
    test::WriteFileBytes(installation.File(L"Corvane.ini"), "");
    const Program program(installation);
    Quit(program, program.Main());
    EXPECT_TRUE(Has(LinesOf(installation.File(L"corvane.log")), " end by the user"));
    EXPECT_FALSE(std::filesystem::exists(installation.File(L"Corvane")));
}

TEST_F(LogUi, TwoCopiesOfTheProgramShareIt) {
    const Installation other;
    SetEnvironmentVariableW(L"LOCALAPPDATA", installation.folder.c_str());
    const Program first(installation);
    const Program second(other);
    for (const Program* program : {&first, &second}) {
        const HWND main = program->Main();
        ASSERT_NE(main, nullptr);
        Choose(main, ME_HelpAbout);
        ASSERT_TRUE(PressButton(program->Window(L"FM_About"), BT_Ok));
        Quit(*program, main);
    }
    const std::vector<std::string> lines = LinesOf(installation.File(L"Corvane\\corvane.log"));
    for (const Program* program : {&first, &second}) {
        const std::string process = " " + std::to_string(program->id) + " ";
        EXPECT_TRUE(Has(lines, process + "command ME_HelpAbout"));
        EXPECT_TRUE(Has(lines, process + "end by the user"));
    }
}

TEST_F(LogUi, WithoutAnyPlaceForItTheProgramWorks) {
    test::WriteFileBytes(installation.File(L"Corvane"), "a file in the way");
    const std::wstring ship = CopyOfSample();
    const Program program(installation, L"\"" + ship + L"\"");
    const HWND main = program.Main();
    ASSERT_NE(main, nullptr);
    EXPECT_EQ(program.FindNow(L"#32770"), nullptr);
    Choose(main, ME_HelpLog);
    const Box box = WaitForBox(program);
    EXPECT_EQ(Message(box).rfind("Corvane writes no log: ", 0), 0U) << Message(box);
    ASSERT_TRUE(Press(box, IDOK));
    Quit(program, main);
}

// The system's own program for folders shows it.
TEST_F(LogUi, FolderIsOpenedFromTheHelpMenu) {
    const Program program(installation);
    const HWND main = program.Main();
    ASSERT_NE(main, nullptr);
    Choose(main, ME_HelpLog);
    // Its title is the folder's name, as that of the program's window is.
    HWND shown = nullptr;
    EXPECT_TRUE(WaitUntil([&] {
        DWORD process = program.id;
        while (process == program.id) {
            shown = FindWindowExW(nullptr, shown, nullptr, L"Corvane");
            if (shown == nullptr) return false;
            GetWindowThreadProcessId(shown, &process);
        }
        return IsWindowVisible(shown) != FALSE;
    }));
    EXPECT_EQ(program.FindNow(L"#32770"), nullptr);
    PostMessageW(shown, WM_CLOSE, 0, 0);
    EXPECT_TRUE(HasClosed(shown));
}

}  // namespace
}  // namespace corvane::ui
