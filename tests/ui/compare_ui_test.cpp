// File > Compare with in the real program, with its prompt, boxes and keys.
#include <gtest/gtest.h>
#include <oleacc.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/shell/compared_ships.h"
#include "tests/ui/accessible.h"
#include "tests/ui/main_window_fixture.h"

namespace corvane::ui {
namespace {

// The ship of the window after some changes, and a copy of what it was before.
struct CompareUi : MainWindowFixture {
    static constexpr int kModels = 13;
    std::wstring path = installation.File(L"ship.ve2");
    std::wstring other = installation.File(L"other.ve2");

    CompareUi() { CoInitialize(nullptr); }
    ~CompareUi() override { CoUninitialize(); }
    CompareUi(const CompareUi&) = delete;
    CompareUi& operator=(const CompareUi&) = delete;

    void SetUp() override {
        MainWindowFixture::SetUp();
        test::WriteFileBytes(other, test::ShipBefore());
        test::WriteFileBytes(path, test::ShipNow());
        Choose(main, ME_ViewRefresh);
        ASSERT_TRUE(RowCountBecomes(Control(LI_Sections), kModels));
    }
    std::string Text() const { return test::ReadFileBytes(path); }
    std::vector<Row> RowsOf(HWND box, int list) const {
        return Rows(program, GetDlgItem(box, list));
    }
    // The box of the comparison with a file; null when it does not come.
    HWND CompareWith(const std::wstring& file) const {
        Choose(main, ME_FileCompare);
        EXPECT_TRUE(AnswerFilePrompt(program, file));
        return program.Window(kCompareBoxClass);
    }
    // Imports the selected models.
    void Import(HWND box) const {
        PostMessageW(GetDlgItem(box, BT_ImportCompared), BM_CLICK, 0, 0);
        const Box question = WaitForBox(program);
        EXPECT_NE(question.text.find(L"Models to import from "), std::wstring::npos);
        ASSERT_TRUE(Press(question, IDYES));
    }
    bool SummaryBecomes(HWND box, const std::wstring& beginning) const {
        return WaitUntil(
            [&] { return TextOf(GetDlgItem(box, LB_Comparison)).starts_with(beginning); });
    }
    std::vector<std::wstring> LastModel() const {
        return Rows(program, Control(LI_Sections)).back().cells;
    }
};

TEST_F(CompareUi, WhatDiffersIsShownAndAModelIsImportedAndUndone) {
    const HWND box = CompareWith(other);
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(TextOf(box), L"Comparison with other.ve2");
    ExpectNamedControls(box);
    const std::vector<Row> rows = RowsOf(box, LI_Differing);
    ASSERT_EQ(rows.size(), size_t{test::kComparedRows});
    EXPECT_EQ(rows[test::kSectionChanged].cells[2], L"Engine room, frame 30");
    ASSERT_TRUE(FocusBecomes(box, LI_Differing));
    PressKey(FocusOf(box), VK_DOWN);
    EXPECT_TRUE(TextBecomes(GetDlgItem(box, LB_Compared),
                            L"Broad orange lines: before. Narrow blue lines: now."));
    const std::vector<Row> values = RowsOf(box, LI_Values);
    ASSERT_EQ(values.size(), 1U);
    EXPECT_EQ(values[0].cells, (std::vector<std::wstring>{L"Panel 5 'Sheer strake', node 2",
                                                          L"z [m]", L"19.6", L"21.6"}));
    SelectRow(program, GetDlgItem(box, LI_Differing), test::kSectionRemoved);
    Import(box);
    ASSERT_TRUE(SummaryBecomes(box, L"Models added: 1, removed: 1, "));
    // The main list has it already.
    EXPECT_TRUE(RowCountBecomes(Control(LI_Sections), kModels + 1));
    PressKey(FocusOf(box), VK_ESCAPE);
    ASSERT_TRUE(HasClosed(box));
    EXPECT_EQ(LastModel()[0], L"Hold 6, frame 91");
    EXPECT_EQ(LastModel()[2], L"16");
    EXPECT_EQ(SelectedRow(Control(LI_Sections)), kModels);
    EXPECT_TRUE(WaitUntil([&] {
        return TextOf(Control(PAN_Help)).find(L" imported from 'other.ve2'") != std::wstring::npos;
    }));
    ASSERT_TRUE(TakesKeys(main));
    TypeWithControl('Z');
    EXPECT_TRUE(RowCountBecomes(Control(LI_Sections), kModels));
    EXPECT_TRUE(
        WaitUntil([&] { return TextOf(Control(PAN_Help)) == L"Undone: Import from other.ve2"; }));
    EXPECT_EQ(Text(), test::ShipNow());
}

TEST_F(CompareUi, ComparisonIsSavedAsText) {
    const HWND box = CompareWith(other);
    ASSERT_NE(box, nullptr);
    const std::wstring saved = installation.File(L"comparison.txt");
    PostMessageW(GetDlgItem(box, BT_SaveReport), BM_CLICK, 0, 0);
    ASSERT_TRUE(AnswerFilePrompt(program, saved));
    ASSERT_TRUE(WaitUntil([&] { return std::filesystem::exists(saved); }));
    EXPECT_TRUE(WaitUntil([&] { return IsWindowEnabled(box) != FALSE; }));
    EXPECT_NE(test::ReadFileBytes(saved).find("\r\nChanged\t1 Engine room, frame 30\tPanel 5 "
                                              "'Sheer strake', node 2\tz [m]\t19.6\t21.6\r\n"),
              std::string::npos);
    ASSERT_TRUE(PressButton(box, IDCANCEL));
}

TEST_F(CompareUi, FileThatIsNoDatabaseAndTheOpenOneAreReported) {
    test::WriteFileBytes(other, "Ask the yard for the drawings.\r\n");
    for (const std::wstring& file : {other, path}) {
        Choose(main, ME_FileCompare);
        ASSERT_TRUE(AnswerFilePrompt(program, file));
        const Box box = WaitForBox(program);
        EXPECT_NE(box.text.find(file == other ? L"is not a Corvane database" : L"ship.ve2"),
                  std::wstring::npos);
        ASSERT_TRUE(Press(box, IDOK));
        EXPECT_EQ(program.FindNow(kCompareBoxClass), nullptr);
    }
}

TEST_F(CompareUi, EarlierVersionIsComparedFromItsBox) {
    Type({VK_END});
    ASSERT_TRUE(WaitUntil([&] { return SelectedRow(Control(LI_Sections)) == kModels - 1; }));
    Choose(main, ME_SectionRemove);
    ASSERT_TRUE(Press(WaitForBox(program), IDYES));
    ASSERT_TRUE(RowCountBecomes(Control(LI_Sections), kModels - 1));
    Choose(main, ME_FileVersions);
    const HWND versions = program.Window(kVersionsBoxClass);
    ASSERT_NE(versions, nullptr);
    PostMessageW(GetDlgItem(versions, BT_CompareVersion), BM_CLICK, 0, 0);
    const HWND box = program.Window(kCompareBoxClass);
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(TextOf(box).starts_with(L"Comparison with the version of "));
    EXPECT_TRUE(TextOf(box).ends_with(L", before Delete of 'Fore peak, frame 280'"));
    ASSERT_EQ(RowsOf(box, LI_Differing).size(), 1U);
    Import(box);
    ASSERT_TRUE(SummaryBecomes(box, L"Models added: 0, removed: 0, "));
    ASSERT_TRUE(PressButton(box, IDCANCEL));
    // The versions have one more, and the one that was compared is selected.
    EXPECT_TRUE(RowCountBecomes(GetDlgItem(versions, LI_Versions), 2));
    EXPECT_EQ(SelectedRow(GetDlgItem(versions, LI_Versions)), 1);
    ASSERT_TRUE(PressButton(versions, IDCANCEL));
    EXPECT_EQ(LastModel()[0], L"Fore peak, frame 280");
}

}  // namespace
}  // namespace corvane::ui
