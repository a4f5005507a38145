// Undo, Redo and Earlier versions in the real program, with its keys, menus and box.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/ui/main_window_fixture.h"

namespace corvane::ui {
namespace {

constexpr wchar_t kVersionsBox[] = L"FM_Versions";
constexpr int kModels = 14;

struct HistoryUi : MainWindowFixture {
    std::wstring path = installation.File(L"ship.ve2");

    std::string Text() const { return test::ReadFileBytes(path); }
    // While an edit puts the new text in place, the file cannot be read.
    bool TextBecomes(const std::string& text) const {
        return WaitUntil([&] {
            std::ifstream file(std::filesystem::path(path), std::ios::binary);
            return file && std::string(std::istreambuf_iterator(file), {}) == text;
        });
    }
    // Deletes the selected model.
    void Delete(int left) const {
        Choose(main, ME_SectionRemove);
        ASSERT_TRUE(Press(WaitForBox(program), IDYES));
        ASSERT_TRUE(RowCountBecomes(Control(LI_Sections), left));
    }
    bool StatusStartsWith(const std::wstring& text) const {
        return WaitUntil([&] { return TextOf(Control(PAN_Help)).starts_with(text); });
    }
};

TEST_F(HistoryUi, ControlZUndoesAndControlYRedoes) {
    const std::string before = Text();
    Delete(kModels - 1);
    const std::string after = Text();
    TypeWithControl('Z');
    EXPECT_TRUE(RowCountBecomes(Control(LI_Sections), kModels));
    EXPECT_EQ(Text(), before);
    EXPECT_TRUE(StatusStartsWith(L"Undone: Delete of '"));
    TypeWithControl('Y');
    EXPECT_TRUE(RowCountBecomes(Control(LI_Sections), kModels - 1));
    EXPECT_EQ(Text(), after);
    // The history is where the user's data are.
    EXPECT_TRUE(std::filesystem::exists(installation.File(L"Corvane\\history\\index.txt")));
}

TEST_F(HistoryUi, EditMenuUndoes) {
    const std::string before = Text();
    Delete(kModels - 1);
    ASSERT_TRUE(TakesKeys(main));
    TypeWithAlt('I');
    ASSERT_TRUE(MenuIsOpen(true));
    Type({'U'});
    EXPECT_TRUE(RowCountBecomes(Control(LI_Sections), kModels));
    EXPECT_EQ(Text(), before);
}

TEST_F(HistoryUi, VersionIsRestoredFromTheBox) {
    const std::string before = Text();
    Delete(kModels - 1);
    Delete(kModels - 2);
    Choose(main, ME_FileVersions);
    const HWND box = program.Window(kVersionsBox);
    ASSERT_NE(box, nullptr);
    const HWND versions = GetDlgItem(box, LI_Versions);
    EXPECT_EQ(Send(versions, LVM_GETITEMCOUNT, 0, 0), 2);
    EXPECT_EQ(SelectedRow(versions), 0);
    EXPECT_EQ(Send(GetDlgItem(box, LI_Sections), LB_GETCOUNT, 0, 0), kModels - 1);
    SelectRow(program, versions, 1);
    EXPECT_TRUE(WaitUntil(
        [&] { return Send(GetDlgItem(box, LI_Sections), LB_GETCOUNT, 0, 0) == kModels; }));
    ASSERT_TRUE(PressButton(box, BT_Restore));
    EXPECT_TRUE(RowCountBecomes(Control(LI_Sections), kModels));
    EXPECT_EQ(Text(), before);
}

TEST_F(HistoryUi, VersionIsSavedAsAnotherFileWhileTheBoxStays) {
    const std::string before = Text();
    Delete(kModels - 1);
    Choose(main, ME_FileVersions);
    const HWND box = program.Window(kVersionsBox);
    ASSERT_NE(box, nullptr);
    const std::wstring copy = installation.File(L"earlier.ve2");
    PostMessageW(GetDlgItem(box, BT_SaveCopy), BM_CLICK, 0, 0);
    ASSERT_TRUE(AnswerFilePrompt(program, copy));
    EXPECT_TRUE(WaitUntil([&] { return std::filesystem::exists(copy); }));
    EXPECT_TRUE(WaitUntil([&] { return IsWindowEnabled(box) != FALSE; }));
    EXPECT_EQ(test::ReadFileBytes(copy), before);
    ASSERT_TRUE(PressButton(box, IDCANCEL));
    EXPECT_EQ(Send(Control(LI_Sections), LVM_GETITEMCOUNT, 0, 0), kModels - 1);
}

}  // namespace
}  // namespace corvane::ui
