// What a screen reader finds in the windows of the real program: a name for every control that can
// have the focus, and no name twice.
#include <gtest/gtest.h>
#include <oleacc.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/ui/accessible.h"
#include "tests/ui/main_window_fixture.h"

namespace corvane::ui {
namespace {

using test::Narrow;

constexpr wchar_t kMessageBoxClass[] = L"#32770";

struct AccessibilityTest : MainWindowFixture {
    AccessibilityTest() { CoInitialize(nullptr); }
    ~AccessibilityTest() override { CoUninitialize(); }
};

Accessible Find(HWND window, int id) {
    const std::vector<Accessible> controls = FocusableControls(window);
    const auto found = std::ranges::find_if(
        controls, [id](const Accessible& control) { return GetDlgCtrlID(control.window) == id; });
    return found == controls.end() ? Accessible{} : *found;
}

bool Has(const Accessible& control, LONG state) {
    return (control.state & state) != 0;
}

TEST_F(AccessibilityTest, EveryControlOfTheMainWindowHasItsOwnName) {
    ExpectNamedControls(main);
    std::vector<std::string> names;
    for (const Accessible& control : FocusableControls(main)) names.push_back(Narrow(control.name));
    const std::vector<std::string> expected = {"Database:",
                                               "Open...",
                                               "Find:",
                                               "Models:",
                                               "Divider between the models and the preview",
                                               "Preview",
                                               "Preview of the section",
                                               "Edit",
                                               "Rule",
                                               "QUOR",
                                               "CSR for BC",
                                               "QUOR MIL",
                                               "Basic Data"};
    EXPECT_EQ(names, expected) << "in the order of the tab key";
    Type({VK_END});
    ASSERT_TRUE(WaitUntil([&] { return !IsShown(BT_Rule); }));
    EXPECT_EQ(Find(main, BT_Rule).window, nullptr);
    ExpectNamedControls(main);
}

// The system's proxies of Wine know the values of fields; whether a box is checked and what a list
// has selected is asked of the controls, as the proxies of Windows do.
TEST_F(AccessibilityTest, ControlsHaveTheirValuesAndStates) {
    const Accessible path = Find(main, TX_DataBase);
    EXPECT_EQ(path.role, ROLE_SYSTEM_TEXT);
    EXPECT_EQ(path.value, installation.File(L"ship.ve2"));
    EXPECT_TRUE(Has(path, STATE_SYSTEM_READONLY));
    EXPECT_FALSE(Has(Find(main, TX_Filter), STATE_SYSTEM_READONLY));
    EXPECT_TRUE(Has(Find(main, LI_Sections), STATE_SYSTEM_FOCUSED));
    EXPECT_EQ(SelectedRow(Control(LI_Sections)), 0);
    EXPECT_TRUE(IsOn(OP_Preview));
    EXPECT_TRUE(IsOn(OP_Rule));
    EXPECT_FALSE(IsOn(OP_Rule + 1));
    TypeWithControl('F');
    ASSERT_TRUE(FocusBecomes(main, TX_Filter));
    TypeText(L"bhd");
    EXPECT_TRUE(WaitUntil([&] { return Find(main, TX_Filter).value == L"bhd"; }));
    EXPECT_TRUE(Has(Find(main, TX_Filter), STATE_SYSTEM_FOCUSED));
    EXPECT_FALSE(Has(Find(main, LI_Sections), STATE_SYSTEM_FOCUSED));
}

TEST_F(AccessibilityTest, EveryControlOfEveryDialogHasItsOwnName) {
    const struct {
        int command;
        const wchar_t* window;
    } dialogs[] = {{ME_FileSettings, kSettingsBoxClass},
                   {ME_SectionProperties, kPropertiesBoxClass},
                   {ME_FilePrint, kPagePreviewClass},
                   {ME_FilePrintAll, kPagePreviewClass},
                   {ME_FileExportAllPictures, kPicturesBoxClass},
                   {ME_SectionRename, kInputBoxClass},
                   {ME_SectionCopy, kInputBoxClass},
                   {ME_FileVersions, kVersionsBoxClass},
                   {ME_FileCheck, kReportBoxClass},
                   {ME_SectionImport, kImportBoxClass},
                   {ME_SectionExport, kExportBoxClass},
                   {ME_HelpAbout, kAboutClass},
                   {ME_SectionRemove, kMessageBoxClass}};
    for (const auto& dialog : dialogs) {
        Choose(main, dialog.command);
        const HWND window = program.Window(dialog.window);
        ASSERT_NE(window, nullptr) << Narrow(dialog.window);
        ExpectNamedControls(window);
        const int button = dialog.window == kMessageBoxClass ? IDNO : IDCANCEL;
        PostMessageW(window, WM_COMMAND, static_cast<WPARAM>(button), 0);
        ASSERT_TRUE(HasClosed(window)) << Narrow(dialog.window);
    }
}

TEST_F(AccessibilityTest, ExchangeBoxesNameTheirPictureAndItsTable) {
    for (const int command : {int{ME_SectionExport}, int{ME_SectionImport}}) {
        CopyFileW(test::DataPath("../samples/aurora_bay.vel").c_str(),
                  installation.File(L"ship.vel").c_str(), FALSE);
        Choose(main, command);
        const bool isExport = command == ME_SectionExport;
        const HWND box = program.Window(isExport ? kExportBoxClass : kImportBoxClass);
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(Find(box, OP_Preview).name, L"Preview");
        EXPECT_EQ(Find(box, PIC_Section).name, L"Preview of the section");
        EXPECT_EQ(Find(box, TX_Facts).window, nullptr) << "nothing is marked";
        ASSERT_TRUE(FocusBecomes(box, FIL_Db));
        // To ship.vel.
        const HWND label = GetDlgItem(box, LB_Service);
        ASSERT_TRUE(PressUntil(VK_DOWN, [&] { return !TextOf(label).empty(); }));
        PostMessageW(box, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(box, PIC_Section)),
                     TRUE);
        ASSERT_TRUE(FocusBecomes(box, PIC_Section));
        Type({VK_SPACE});
        ASSERT_TRUE(WaitUntil([&] { return Find(box, TX_Facts).window != nullptr; }));
        EXPECT_EQ(Find(box, TX_Facts).name, L"Marked in the picture:");
        EXPECT_TRUE(Has(Find(box, TX_Facts), STATE_SYSTEM_READONLY));
        ExpectNamedControls(box);
        PostMessageW(box, WM_COMMAND, IDCANCEL, 0);
        ASSERT_TRUE(HasClosed(box));
    }
}

TEST_F(AccessibilityTest, DisabledButtonsHaveNamesAndSayThatTheyAreDisabled) {
    Choose(main, ME_FileVersions);
    const HWND box = program.Window(kVersionsBoxClass);
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(Find(box, BT_Restore).name, L"Restore");
    EXPECT_TRUE(Has(Find(box, BT_Restore), STATE_SYSTEM_UNAVAILABLE)) << "there is no version yet";
    EXPECT_FALSE(Has(Find(box, IDCANCEL), STATE_SYSTEM_UNAVAILABLE));
}

TEST(AccessibilityAtStart, EveryControlOfTheStartPaneHasItsOwnName) {
    const Settings settings;
    const Installation installation;
    const Program program(installation);
    const HWND main = program.Main();
    ASSERT_NE(main, nullptr);
    CoInitialize(nullptr);
    ExpectNamedControls(main);
    EXPECT_EQ(Find(main, BT_StartOpen).name, L"Open a database...");
    EXPECT_TRUE(Has(Find(main, BT_Open), STATE_SYSTEM_UNAVAILABLE));
    CoUninitialize();
}

}  // namespace
}  // namespace corvane::ui
