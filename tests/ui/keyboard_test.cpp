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
    kPropertiesBox,
    kSettingsBox,
    kPagePreview,
    kPicturesBox,
    kReportBox,
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
    {ME_FileCheck, 'F', 'C', Shows::kReportBox, "Check of ship.ve2"},
    {ME_FileCompare, 'F', 'M', Shows::kWindow, "Compare with"},
    {ME_FileExportList, 'F', 'L', Shows::kWindow, "Export list"},
    {ME_FileExportPicture, 'F', 'P', Shows::kWindow, "Export picture"},
    {ME_FileExportAllPictures, 'F', 'X', Shows::kPicturesBox, "Export all pictures"},
    {ME_FilePrint, 'F', 'I', Shows::kPagePreview, "Page preview of 'Engine room, frame 30'"},
    {ME_FilePrintAll, 'F', 'A', Shows::kPagePreview, "Page preview of 'ship.ve2'"},
    {ME_FileSettings, 'F', 'T', Shows::kSettingsBox, "Settings"},
    {ME_FileQuit, 'F', 'Q', Shows::kNothing, ""},
    // Without a history there is nothing to undo; see history_ui_test.cpp.
    {ME_EditUndo, 'I', 'U', Shows::kNothing, ""},
    {ME_EditRedo, 'I', 'R', Shows::kNothing, ""},
    {ME_EditFind, 'I', 'F', Shows::kNothing, ""},
    {ME_EditSelectAll, 'I', 'A', Shows::kNothing, ""},
    // These only go to the clipboard; see list_ui_test.cpp and picture_ui_test.cpp.
    {ME_EditCopyList, 'I', 'I', Shows::kNothing, ""},
    {ME_EditCopyPicture, 'I', 'P', Shows::kNothing, ""},
    // These show nothing but the list in another order; see list_ui_test.cpp.
    {ME_ViewSortName, 'V', 'N', Shows::kNothing, ""},
    {ME_ViewSortX, 'V', 'X', Shows::kNothing, ""},
    {ME_ViewSortNumber, 'V', 'U', Shows::kNothing, ""},
    {ME_ViewSortKind, 'V', 'K', Shows::kNothing, ""},
    {ME_ViewSortFrame, 'V', 'F', Shows::kNothing, ""},
    {ME_ViewFileOrder, 'V', 'O', Shows::kNothing, ""},
    {ME_ViewDescending, 'V', 'D', Shows::kNothing, ""},
    {ME_ViewRefresh, 'V', 'R', Shows::kNothing, ""},
    // See picture_navigation_test.cpp.
    {ME_ViewZoomIn, 'V', 'Z', Shows::kNothing, ""},
    {ME_ViewZoomOut, 'V', 'T', Shows::kNothing, ""},
    {ME_ViewFit, 'V', 'W', Shows::kNothing, ""},
    {ME_ViewLarger, 'V', 'L', Shows::kNothing, ""},
    {ME_ViewScaleBar, 'V', 'B', Shows::kNothing, ""},
    {ME_ViewAxes, 'V', 'A', Shows::kNothing, ""},
    {ME_ViewLegend, 'V', 'G', Shows::kNothing, ""},
    {ME_ViewNames, 'V', 'P', Shows::kNothing, ""},
    {ME_ViewNumbers, 'V', 'S', Shows::kNothing, ""},
    {ME_ViewThickness, 'V', 'I', Shows::kNothing, ""},
    // See picture_pages_ui_test.cpp.
    {ME_ViewTable, 'V', 'C', Shows::kNothing, ""},
    {ME_ViewNextBulkhead, 'V', 'E', Shows::kNothing, ""},
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
    {ME_SectionRename, 'S', 'N', Shows::kInputBox, "Rename Section"},
    {ME_SectionProperties, 'S', 'P', Shows::kPropertiesBox, "Properties Section"},
    {ME_HelpAbout, 'H', 'A', Shows::kAbout, "About"},
    // The sample is not in the installation; see files_ui_test.cpp.
    {ME_HelpSample, 'H', 'S', Shows::kNothing, ""},
    // Nor is the guide, and the details only go to the clipboard; see help_ui_test.cpp.
    {ME_HelpContents, 'H', 'C', Shows::kBox, "help\\index.html' of the user guide is not there"},
    {ME_HelpDetails, 'H', 'D', Shows::kNothing, ""},
    // Another program shows the folder; see log_ui_test.cpp.
    {ME_HelpLog, 'H', 'L', Shows::kNothing, ""},
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
            case Shows::kPropertiesBox:
                return L"FM_Properties";
            case Shows::kSettingsBox:
                return L"FM_Settings";
            case Shows::kPagePreview:
                return L"FM_Page";
            case Shows::kPicturesBox:
                return L"FM_Pictures";
            case Shows::kReportBox:
                return L"FM_Report";
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
    // On the second of the rows that are below the head of the list.
    POINT SecondRow() const {
        const HWND head = reinterpret_cast<HWND>(Send(Control(LI_Sections), LVM_GETHEADER, 0, 0));
        RECT headPlace{};
        GetWindowRect(head, &headPlace);
        const LONG height = headPlace.bottom - headPlace.top;
        return {Place(LI_Sections).left + 80, headPlace.bottom + height + height / 3};
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
        if (command.id == 0 || command.menu == Menu::kNone) continue;
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

// Those of other keys: Enter and Delete below, F2 and Alt+Enter in naming_ui_test.cpp.
TEST_F(KeyboardTest, KeysWithControlRunTheirCommands) {
    const struct {
        WORD key;
        Shows shows;
        const char* text;
    } keys[] = {{'N', Shows::kWindow, "New database"},
                {'O', Shows::kWindow, "Open database"},
                {'S', Shows::kWindow, "Save database as"},
                {'C', Shows::kInputBox, "Copy Section"}};
    for (const auto& key : keys) {
        TypeWithControl(key.key);
        ExpectAndClose(key.shows, key.text);
        ExpectTheListReady();
        if (HasFatalFailure()) return;
    }
}

TEST_F(KeyboardTest, KeysOfTheListLeaveTheFieldOfThePathAlone) {
    TypeWithAlt('D');
    ASSERT_TRUE(FocusBecomes(main, TX_DataBase));
    const std::wstring path = TextOf(Control(TX_DataBase));
    Send(Control(TX_DataBase), EM_SETSEL, 0, -1);
    TypeWithControl('C');
    EXPECT_TRUE(WaitUntil([&] { return ClipboardText() == path; })) << Narrow(ClipboardText());
    Type({VK_DELETE, VK_RETURN});
    // Keys come in their order: when the last one has had its effect, those before had none.
    Type({VK_F2});
    ExpectAndClose(Shows::kInputBox, "Rename Section");
    EXPECT_EQ(TextOf(Control(TX_DataBase)), path);
}

TEST_F(KeyboardTest, F6GoesAroundThePartsOfTheWindow) {
    for (const int pane : {int{OP_Preview}, int{OP_Rule}, int{TX_DataBase}, int{LI_Sections}}) {
        ASSERT_TRUE(PressUntil(VK_F6, [&] { return FocusedControl(main) == pane; })) << pane;
    }
    for (const int pane : {int{TX_DataBase}, int{OP_Rule}, int{OP_Preview}, int{LI_Sections}}) {
        TypeWithShift(VK_F6);
        ASSERT_TRUE(FocusBecomes(main, pane)) << pane;
    }
    EXPECT_TRUE(IsOn(OP_Rule));
}

TEST_F(KeyboardTest, F6FromTheMiddleOfAPartGoesToTheNextOne) {
    ASSERT_TRUE(TabTo(BT_Open));
    ASSERT_TRUE(PressUntil(VK_F6, [&] { return FocusedControl(main) == OP_Rule; }));
    ASSERT_TRUE(TabTo(BT_Bsd));
    ASSERT_TRUE(PressUntil(VK_F6, [&] { return FocusedControl(main) == TX_DataBase; }));
}

// ---- The context menu of the list --------------------------------------------------------------

TEST_F(KeyboardTest, RightClickSelectsTheRowAndOpensTheCommandsOfTheSectionMenu) {
    RightClick(SecondRow());
    ASSERT_TRUE(MenuIsOpen(true));
    EXPECT_EQ(SelectedRow(Control(LI_Sections)), 1);
    Type({'P'});
    ExpectAndClose(Shows::kPropertiesBox, "Properties Section");
    ExpectTheListReady();
}

TEST_F(KeyboardTest, ShiftF10AndTheMenuKeyOpenTheMenuAtTheSelectedRow) {
    for (const bool byShift : {true, false}) {
        if (byShift) {
            TypeWithShift(VK_F10);
        } else {
            Type({VK_APPS});
        }
        ASSERT_TRUE(MenuIsOpen(true));
        RECT menu{};
        GetWindowRect(program.FindNow(kMenuClass), &menu);
        const RECT list = Place(LI_Sections);
        EXPECT_GE(menu.left, list.left);
        EXPECT_GE(menu.top, list.top);
        EXPECT_LT(menu.top, list.bottom);
        Type({'N'});
        ExpectAndClose(Shows::kInputBox, "Rename Section");
        ExpectTheListReady();
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
    DoubleClick(SecondRow());
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
        ASSERT_TRUE(RepeatUntil([&] { TypeWithAlt(static_cast<WORD>(button.letter)); },
                                [&] { return program.FindNow(ClassOf(button.shows)) != nullptr; }))
            << button.text;
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
