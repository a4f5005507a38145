// Settings in the real program, and a missing program that is looked for.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/ui/main_window_fixture.h"

namespace corvane::ui {
namespace {

using test::Narrow;

struct SettingsBoxUi : MainWindowFixture {
    HWND OpenSettings() const {
        Choose(main, ME_FileSettings);
        return program.Window(L"FM_Settings");
    }
    static void Fill(HWND box, int field, const std::wstring& text) {
        Send(GetDlgItem(box, TX_Setting + field), WM_SETTEXT, 0,
             reinterpret_cast<LPARAM>(text.c_str()));
    }
    // Waits for the system's prompt for a folder, and gives it a path.
    bool AnswerFolderPrompt(const std::wstring& folder) const {
        constexpr int kFolderField = 0x480;
        HWND field = nullptr;
        const bool isThere = WaitUntil([&] {
            const HWND prompt = program.FindNow(L"#32770");
            field = prompt == nullptr ? nullptr : GetDlgItem(prompt, kFolderField);
            return field != nullptr;
        });
        if (!isThere) return false;
        const HWND prompt = GetParent(field);
        Send(field, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(folder.c_str()));
        PostMessageW(GetDlgItem(prompt, IDOK), BM_CLICK, 0, 0);
        return HasClosed(prompt);
    }
};

TEST_F(SettingsBoxUi, AcceptedSettingsAreInTheFileAtOnce) {
    const HWND box = OpenSettings();
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(TextOf(GetDlgItem(box, TX_Setting + 3)), L"1.5");
    Fill(box, 3, L"2.75");
    ASSERT_TRUE(PressButton(box, IDOK));
    EXPECT_TRUE(WaitUntil([] { return Settings::Read(L"FirstLimit") == L"2.75"; }));
    EXPECT_TRUE(WaitUntil(
        [&] { return TextOf(Control(PAN_Help)).starts_with(L"The settings were saved in '"); }));
}

TEST_F(SettingsBoxUi, WrongFieldIsNamedAndTheBoxStaysUntilEscCancels) {
    const HWND box = OpenSettings();
    ASSERT_NE(box, nullptr);
    Fill(box, 3, L"2.75");
    Fill(box, 4, L"2,5");
    Type({VK_RETURN});
    const Box warning = WaitForBox(program);
    EXPECT_EQ(Message(warning), "Second limit: '2,5' is not a number.");
    ASSERT_TRUE(Press(warning, IDOK));
    EXPECT_TRUE(FocusBecomes(box, TX_Setting + 4));
    Type({VK_ESCAPE});
    EXPECT_TRUE(HasClosed(box));
    EXPECT_EQ(Settings::Read(L"FirstLimit"), L"(none)") << "cancelled";
}

TEST_F(SettingsBoxUi, FolderIsChosenInThePromptOfTheSystem) {
    const HWND box = OpenSettings();
    ASSERT_NE(box, nullptr);
    const std::wstring folder = installation.File(L"my ships");
    std::filesystem::create_directory(folder);
    PostMessageW(GetDlgItem(box, BT_ChooseFolder + 1), BM_CLICK, 0, 0);
    ASSERT_TRUE(AnswerFolderPrompt(folder));
    EXPECT_TRUE(TextBecomes(GetDlgItem(box, TX_Setting + 1), folder));
    ASSERT_TRUE(PressButton(box, IDOK));
    EXPECT_TRUE(WaitUntil([&] { return Settings::Read(L"WorkDirectory") == folder + L"\\"; }));
}

TEST_F(SettingsBoxUi, MissingProgramThatIsFoundRunsAndItsFolderIsKept) {
    const std::wstring folder = installation.File(L"the suite");
    std::filesystem::create_directory(folder);
    installation.Add(L"child_program.exe");
    std::filesystem::rename(installation.File(L"child_program.exe"), folder + L"\\SectInput.exe");
    TypeWithAlt('E');
    const Box question = WaitForBox(program);
    EXPECT_NE(Narrow(question.text).find("SectInput.exe' cannot be opened"), std::string::npos);
    PostMessageW(GetDlgItem(question.window, IDOK), BM_CLICK, 0, 0);
    ASSERT_TRUE(HasClosed(question.window));
    ASSERT_TRUE(AnswerFolderPrompt(folder));
    EXPECT_TRUE(WaitUntil([&] { return Settings::Read(L"DataDirectory") == folder + L"\\"; }));
    EXPECT_TRUE(
        WaitUntil([&] { return std::filesystem::exists(folder + L"\\SectInput.exe.ran"); }));
}

}  // namespace
}  // namespace corvane::ui
