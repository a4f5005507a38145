// The box Earlier versions as Windows shows it: its list, the models of the selected version, its
// buttons.
#include "ui/dialogs/versions_box.h"

#include <gtest/gtest.h>

#include <string>

#include "report/messages.h"
#include "tests/shell/compared_ships.h"
#include "tests/shell/fake_view.h"
#include "tests/ui/dialogs/modal_window.h"
#include "ui/base/control_ids.h"

namespace corvane {
namespace {

using test::Narrow;
using test::Press;
using test::TextOf;

TextVersion Version(const wchar_t* what, const std::wstring& file) {
    TextVersion version;
    version.time = L"2026-03-29 14:05:30";
    version.user = L"Anna";
    version.what = what;
    version.models = 14;
    version.old.size = 2500;
    version.file = file;
    return version;
}

struct VersionsBoxTest : testing::Test {
    test::FakeView kept;
    VersionChoice choice;

    VersionsBoxTest() {
        choice.path = L"C:\\ships\\ship & sons.ve2";
        const std::wstring models = test::DataPath("golden/models.ve2");
        choice.versions = {Version(L"Delete of 'Hold 3'", models), Version(L"Copy", models)};
        choice.versions[1].isChanged = true;
    }
    bool Ask(const std::function<void(HWND)>& look) {
        const test::WhenOpen open(kVersionsBoxClass, look);
        return AskVersion(choice);
    }
    static std::string Cell(HWND window, int row, int column) {
        wchar_t text[200] = L"";
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = text;
        item.cchTextMax = 200;
        SendDlgItemMessageW(window, LI_Versions, LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                            reinterpret_cast<LPARAM>(&item));
        return Narrow(text);
    }
    static void Select(HWND window, int row) {
        LVITEMW item{};
        item.state = item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
        SendDlgItemMessageW(window, LI_Versions, LVM_SETITEMSTATE, static_cast<WPARAM>(row),
                            reinterpret_cast<LPARAM>(&item));
    }
};

TEST_F(VersionsBoxTest, ListsTheVersionsAndTheModelsOfTheSelectedOne) {
    EXPECT_FALSE(Ask([](HWND window) {
        const char* const cells[] = {"2026-03-29 14:05:30", "Delete of 'Hold 3'", "Anna", "14",
                                     "3 KB"};
        for (int column = 0; column < 5; ++column)
            EXPECT_EQ(Cell(window, 0, column), cells[column]);
        EXPECT_EQ(Cell(window, 1, 1), "Copy");
        EXPECT_EQ(TextOf(window, LB_Versions),
                  Narrow(FormatMessage(kMsgVersionsOf, {L"ship & sons.ve2"})));
        EXPECT_EQ(SendDlgItemMessageW(window, LI_Sections, LB_GETCOUNT, 0, 0), 3);
        EXPECT_EQ(TextOf(window, LB_Sections), Narrow(FormatMessage(kMsgModelsOfVersion, {3})));
        Select(window, 1);
        EXPECT_EQ(TextOf(window, LB_Sections), Narrow(FormatMessage(kMsgVersionIsChanged, {3})));
        Press(window, IDCANCEL);
    }));
}

TEST_F(VersionsBoxTest, RestoreReturnsTheSelectedVersion) {
    EXPECT_TRUE(Ask([](HWND window) {
        Select(window, 1);
        Press(window, BT_Restore);
    }));
    EXPECT_EQ(choice.chosen, 1U);
}

TEST_F(VersionsBoxTest, CompareComparesTheSelectedVersionWithTheDatabase) {
    const test::TemporaryFolder folder;
    shell.database.path = folder.File(L"ship.ve2");
    test::WriteFileBytes(shell.database.path, test::ShipNow());
    std::wstring name;
    std::wstring before;
    test::FakeView::showComparison = [&](Comparison& comparison) {
        name = comparison.beforeName;
        before = comparison.before;
    };
    EXPECT_FALSE(Ask([](HWND window) {
        Select(window, 1);
        SendDlgItemMessageW(window, BT_CompareVersion, BM_CLICK, 0, 0);
        EXPECT_TRUE(IsWindowVisible(window)) << "the box stays";
        EXPECT_EQ(Cell(window, 1, 1), "Copy");
        Press(window, IDCANCEL);
    }));
    EXPECT_EQ(name, L"the version of 2026-03-29 14:05:30, before Copy");
    EXPECT_EQ(before, choice.versions[1].file);
}

TEST_F(VersionsBoxTest, WithoutVersionsThereIsOnlyClose) {
    choice.versions.clear();
    EXPECT_FALSE(Ask([](HWND window) {
        EXPECT_EQ(TextOf(window, LB_Versions),
                  Narrow(FormatMessage(kMsgNoVersions, {L"ship & sons.ve2"})));
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(window, BT_Restore)));
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(window, BT_SaveCopy)));
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(window, BT_CompareVersion)));
        Press(window, IDCANCEL);
    }));
}

TEST_F(VersionsBoxTest, EnterAndEscCloseAndRestoreNothing) {
    for (const WPARAM key : {VK_RETURN, VK_ESCAPE}) {
        EXPECT_FALSE(Ask([key](HWND window) {
            EXPECT_EQ(GetFocus(), GetDlgItem(window, LI_Versions));
            test::PressKey(GetFocus(), key);
        }));
    }
}

TEST_F(VersionsBoxTest, TabGoesFromTheVersionsToClose) {
    Ask([](HWND window) {
        HWND control = GetDlgItem(window, LI_Versions);
        for (const int id : {int{LI_Sections}, int{BT_Restore}, int{BT_SaveCopy},
                             int{BT_CompareVersion}, int{IDCANCEL}}) {
            control = GetNextDlgTabItem(window, control, FALSE);
            EXPECT_EQ(GetDlgCtrlID(control), id);
        }
        Press(window, IDCANCEL);
    });
}

TEST_F(VersionsBoxTest, NothingIsCutAtAnyResolution) {
    Ask([](HWND window) {
        for (const WORD dpi : test::kResolutions) {
            test::ExpectWholeAt(window, dpi);
            RECT client{};
            GetClientRect(GetDlgItem(window, LI_Versions), &client);
            int width = 0;
            for (int column = 0; column < 5; ++column) {
                width += static_cast<int>(SendDlgItemMessageW(
                    window, LI_Versions, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
            }
            EXPECT_LE(width, client.right) << dpi;
        }
        Press(window, IDCANCEL);
    });
}

}  // namespace
}  // namespace corvane
