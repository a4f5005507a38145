// Every command of the main window by the keyboard alone.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/ui/main_window_fixture.h"

namespace corvane::ui {
namespace {

using test::Narrow;

enum class Shows {
    kBox,       // a message box whose text holds `text`
    kQuestion,  // the same; it has no Cancel, and the Enter key means No
    kWindow,    // a window of the system's dialogs with the title `text`
    kInputBox,  // a window of the program's own with the title `text`
    kAbout,     // the same
    kExportBox,
    kImportBox,
    kVersionsBox,
    kNothing  // the program ends, or the command cannot be chosen
};

// A command's way through the menus, and what it shows when no program of the suite is installed.
struct KeyCommand {
    uint16_t id;
    char menu;
    char item;
    Shows shows;
    const char* text;
};

constexpr KeyCommand kKeyCommands[] = {
    {ME_FileNew, 'F', 'N', Shows::kWindow, "New database"},
    {ME_FileOpen, 'F', 'O', Shows::kWindow, "Open database"},
    {ME_FileSaveAs, 'F', 'S', Shows::kWindow, "Save database as"},
    {ME_FileSaveLegacy, 'F', 'V', Shows::kWindow, "Save as Velk Dos"},
    {ME_FileVersions, 'F', 'E', Shows::kVersionsBox, "Earlier versions"},
    {ME_FileQuit, 'F', 'Q', Shows::kNothing, ""},
    // Without a history there is nothing to undo; see history_ui_test.cpp.
    {ME_EditUndo, 'I', 'U', Shows::kNothing, ""},
    {ME_EditRedo, 'I', 'R', Shows::kNothing, ""},
    {ME_EditFind, 'I', 'F', Shows::kNothing, ""},
    // These show nothing but the list in another order; see list_ui_test.cpp.
    {ME_ViewSortName, 'V', 'N', Shows::kNothing, ""},
    {ME_ViewSortX, 'V', 'X', Shows::kNothing, ""},
    {ME_ViewSortNumber, 'V', 'U', Shows::kNothing, ""},
    {ME_ViewSortKind, 'V', 'K', Shows::kNothing, ""},
    {ME_ViewSortFrame, 'V', 'F', Shows::kNothing, ""},
    {ME_ViewFileOrder, 'V', 'O', Shows::kNothing, ""},
    {ME_ViewDescending, 'V', 'D', Shows::kNothing, ""},
    {ME_FileBSD, 'B', 'O', Shows::kBox, "BsdEdit.exe"},
    {ME_FileImportBSD, 'B', 'I', Shows::kWindow, "Import"},
    {ME_SectionNew, 'C', 'S', Shows::kBox, "SectInput.exe"},
    {ME_NewBulkhead, 'C', 'B', Shows::kBox, "BhdInput.exe"},
    {ME_NewTorsion, 'C', 'M', Shows::kBox, "TorModel.exe"},
    {ME_SectionInput, 'S', 'E', Shows::kBox, "SectInput.exe"},
    {ME_SectionVelkRule, 'S', 'R', Shows::kBox, "SectRule.exe"},
    {ME_SectionCopy, 'S', 'C', Shows::kInputBox, "Copy Section"},
    {ME_SectionRemove, 'S', 'D', Shows::kQuestion, "Are you sure to remove Section "},
    {ME_SectionImport, 'S', 'I', Shows::kImportBox, "DOS Velk Sections"},
    {ME_SectionExport, 'S', 'X', Shows::kExportBox, "Export to Velk Dos"},
    {ME_HelpAbout, 'H', 'A', Shows::kAbout, "About"},
};

struct KeyboardTest : MainWindowFixture {
    static const wchar_t* ClassOf(Shows shows) {
        switch (shows) {
            case Shows::kAbout:
                return L"FM_About";
            case Shows::kInputBox:
                return L"InputBox";
            case Shows::kExportBox:
                return L"FM_Export";
            case Shows::kImportBox:
                return L"FM_Inport";
            case Shows::kVersionsBox:
                return L"FM_Versions";
            default:
                return L"#32770";
        }
    }
    // Waits for what a command shows, compares it, and closes it with the key that does nothing.
    void ExpectAndClose(Shows shows, const std::string& text) const {
        const HWND window = program.Window(ClassOf(shows));
        ASSERT_NE(window, nullptr) << text;
        ASSERT_TRUE(WaitUntil([&] { return GetForegroundWindow() == window; })) << text;
        if (shows == Shows::kBox || shows == Shows::kQuestion) {
            EXPECT_NE(Narrow(WaitForBox(program).text).find(text), std::string::npos)
                << Narrow(WaitForBox(program).text);
        } else {
            EXPECT_EQ(Narrow(TextOf(window)), text);
        }
        Type({shows == Shows::kQuestion ? WORD{VK_RETURN} : WORD{VK_ESCAPE}});
        ASSERT_TRUE(HasClosed(window)) << text;
    }
    // Presses Tab until the control has the focus, once around the window at most.
    bool TabTo(int control) const {
        constexpr int kMostStops = 20;
        for (int i = 0; i < kMostStops && FocusedControl(main) != control; ++i) {
            const int before = FocusedControl(main);
            if (!PressUntil(VK_TAB, [&] { return FocusedControl(main) != before; })) return false;
        }
        return FocusedControl(main) == control;
    }
    void ExpectTheListReady() const {
        EXPECT_TRUE(WaitUntil([&] { return IsWindowEnabled(main) != FALSE; }));
        EXPECT_TRUE(FocusBecomes(main, LI_Sections));
        // The keys go to the window in front, whatever has the focus in it.
        EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == main; }));
    }
};

TEST_F(KeyboardTest, EveryCommandOfTheMenusIsInTheTable) {
    for (const Command& command : Commands()) {
        if (command.id == 0) continue;
        EXPECT_NE(std::ranges::find(kKeyCommands, command.id, &KeyCommand::id),
                  std::end(kKeyCommands))
            << command.name;
    }
}

TEST_F(KeyboardTest, EveryCommandIsChosenByItsLetters) {
    for (const KeyCommand& command : kKeyCommands) {
        if (command.shows == Shows::kNothing) continue;
        SCOPED_TRACE(std::string(1, command.menu) + " " + command.item);
        ASSERT_TRUE(ChooseByKeys(program, static_cast<WORD>(command.menu),
                                 static_cast<WORD>(command.item)));
        ExpectAndClose(command.shows, command.text);
        ExpectTheListReady();
        if (HasFatalFailure()) return;
    }
}

TEST_F(KeyboardTest, QuitEndsTheProgram) {
    ASSERT_TRUE(ChooseByKeys(program, 'F', 'Q'));
    EXPECT_TRUE(program.HasEnded());
    EXPECT_EQ(program.ExitCode(), 0U);
}

TEST_F(KeyboardTest, AltF4EndsTheProgram) {
    TypeWithAlt(VK_F4);
    EXPECT_TRUE(program.HasEnded());
    EXPECT_EQ(program.ExitCode(), 0U);
}

// The Enter key asks the window for its default button, with a message whose number is WM_USER.
TEST_F(KeyboardTest, EnterLeavesTheDividerWhereItIs) {
    const LONG before = Place(SP_Sections).left;
    Type({VK_RETURN});
    ExpectAndClose(Shows::kBox, "SectInput.exe");
    ExpectTheListReady();
    EXPECT_EQ(Place(SP_Sections).left, before);
}

TEST_F(KeyboardTest, DeleteInTheListAsksAndEnterKeepsTheModel) {
    Type({VK_DELETE});
    ExpectAndClose(Shows::kQuestion, "Are you sure to remove Section ");
    ExpectTheListReady();
    EXPECT_EQ(Rows(program, Control(LI_Sections)).size(), 14U);
}

TEST_F(KeyboardTest, DoubleClickInTheListEdits) {
    const RECT list = Place(LI_Sections);
    // The second of the rows that are below the head.
    const HWND head = reinterpret_cast<HWND>(Send(Control(LI_Sections), LVM_GETHEADER, 0, 0));
    RECT headPlace{};
    GetWindowRect(head, &headPlace);
    const LONG height = headPlace.bottom - headPlace.top;
    DoubleClick({list.left + 80, headPlace.bottom + height + height / 3});
    ExpectAndClose(Shows::kBox, "SectInput.exe");
    EXPECT_TRUE(ShowsPosition(L"X = 44.7 m"));
    ExpectTheListReady();
}

TEST_F(KeyboardTest, LettersOfTheButtonsPressThem) {
    const struct {
        char letter;
        Shows shows;
        const char* text;
    } buttons[] = {{'O', Shows::kWindow, "Open database"},
                   {'E', Shows::kBox, "SectInput.exe"},
                   {'R', Shows::kBox, "SectRule.exe"}};
    for (const auto& button : buttons) {
        TypeWithAlt(static_cast<WORD>(button.letter));
        ExpectAndClose(button.shows, button.text);
        EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == main; }));
    }
}

// "BSD" and "Basic Data" have the same letter.
TEST_F(KeyboardTest, LetterOfMenuAndButtonOpensTheMenu) {
    ASSERT_TRUE(IsWindowEnabled(Control(BT_Bsd)));
    for (const int from : {int{LI_Sections}, int{BT_Bsd}, int{TX_DataBase}}) {
        ASSERT_TRUE(TabTo(from));
        TypeWithAlt('B');
        EXPECT_TRUE(MenuIsOpen(true));
        EXPECT_EQ(program.FindNow(L"#32770"), nullptr) << "the button was pressed";
        Type({VK_ESCAPE, VK_ESCAPE});
        EXPECT_TRUE(MenuIsOpen(false));
    }
}

TEST_F(KeyboardTest, SpaceAndEnterPressTheButtonThatHasTheFocus) {
    const struct {
        int button;
        const char* text;
    } buttons[] = {{BT_Open, "SectInput.exe"}, {BT_Rule, "SectRule.exe"}, {BT_Bsd, "BsdEdit.exe"}};
    for (const auto& button : buttons) {
        ASSERT_TRUE(TabTo(button.button));
        for (const WORD key : {WORD{VK_SPACE}, WORD{VK_RETURN}}) {
            ASSERT_TRUE(PressUntil(key, [&] { return program.FindNow(L"#32770") != nullptr; }));
            ExpectAndClose(Shows::kBox, button.text);
            ASSERT_TRUE(FocusBecomes(main, button.button));
        }
    }
}

}  // namespace
}  // namespace corvane::ui
