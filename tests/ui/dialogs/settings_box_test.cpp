// The box Settings as Windows shows it: its fields, what it refuses, its keys.
#include "ui/dialogs/settings_box.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "report/messages.h"
#include "tests/shell/fake_view.h"
#include "tests/ui/dialogs/modal_window.h"
#include "ui/base/control_ids.h"

namespace corvane {
namespace {

using test::Narrow;
using test::Press;
using test::TextOf;

struct SettingsBoxTest : testing::Test {
    test::FakeView kept;
    test::TemporaryFolder folder;
    SettingsChoice choice;

    SettingsBoxTest() {
        choice.texts = {folder.path, folder.path, folder.path, L"1.5", L"3",
                        L"1.5",      L"-1",       L"50",       L"1024"};
        choice.file = L"C:\\windows\\Corvane.ini";
    }
    bool Ask(const std::function<void(HWND)>& look) {
        const test::WhenOpen open(kSettingsBoxClass, look);
        return AskSettings(choice);
    }
    static void TypeInto(HWND window, int field, const wchar_t* text) {
        SetDlgItemTextW(window, TX_Setting + field, text);
    }
};

TEST_F(SettingsBoxTest, ShowsEveryFieldAndTheFile) {
    EXPECT_FALSE(Ask([this](HWND window) {
        for (int field = 0; field < kSettingsFieldCount; ++field) {
            EXPECT_EQ(TextOf(window, TX_Setting + field),
                      Narrow(choice.texts[static_cast<size_t>(field)]));
        }
        EXPECT_EQ(TextOf(window, TX_SettingsFile), "C:\\windows\\Corvane.ini");
        EXPECT_EQ(TextOf(window, LB_Programs), Narrow(ProgramsText(folder.path)));
        EXPECT_EQ(GetFocus(), GetDlgItem(window, TX_Setting));
        Press(window, IDCANCEL);
    }));
}

TEST_F(SettingsBoxTest, OkReturnsWhatWasTyped) {
    EXPECT_TRUE(Ask([](HWND window) {
        TypeInto(window, kFirstLimit, L"2.5");
        TypeInto(window, kHistoryVersions, L"7");
        Press(window, IDOK);
    }));
    EXPECT_EQ(choice.texts[kFirstLimit], L"2.5");
    EXPECT_EQ(choice.texts[kHistoryVersions], L"7");
}

TEST_F(SettingsBoxTest, WrongFieldIsReportedHasTheFocusAndTheBoxStays) {
    EXPECT_FALSE(Ask([](HWND window) {
        TypeInto(window, kSecondLimit, L"2,5");
        SendMessageW(GetDlgItem(window, IDOK), BM_CLICK, 0, 0);
        EXPECT_TRUE(IsWindowVisible(window));
        EXPECT_EQ(GetFocus(), GetDlgItem(window, TX_Setting + int{kSecondLimit}));
        EXPECT_EQ(
            test::RecordedReports::Of("warning"),
            std::vector<std::string>{Narrow(BoxText(kMsgNotANumber, {L"Second limit", L"2,5"}))});
        Press(window, IDCANCEL);
    }));
}

TEST_F(SettingsBoxTest, ProgramsAreLookedForWhileTheirFolderIsTyped) {
    Ask([this](HWND window) {
        TypeInto(window, kProgramsFolder, L"C:\\no such folder");
        EXPECT_EQ(TextOf(window, LB_Programs), Narrow(ProgramsText(L"C:\\no such folder")));
        for (const wchar_t* name : {L"BsdEdit.exe", L"SectInput.exe"}) {
            test::WriteFileBytes(folder.File(name), "");
        }
        TypeInto(window, kProgramsFolder, folder.path.c_str());
        EXPECT_EQ(TextOf(window, LB_Programs), Narrow(ProgramsText(folder.path)));
        EXPECT_EQ(TextOf(window, LB_Programs).find("BsdEdit.exe"), std::string::npos);
        Press(window, IDCANCEL);
    });
}

TEST_F(SettingsBoxTest, FixedProgramsFolderCannotBeChanged) {
    choice.isProgramsFolderFixed = true;
    Ask([](HWND window) {
        const auto style = GetWindowLongPtrW(GetDlgItem(window, TX_Setting), GWL_STYLE);
        EXPECT_NE(style & ES_READONLY, 0);
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(window, BT_ChooseFolder)));
        EXPECT_EQ(TextOf(window, LB_Programs), Narrow(GetMessage(kMsgProgramsBeside)));
        Press(window, IDCANCEL);
    });
}

TEST_F(SettingsBoxTest, EnterAcceptsAndEscCancels) {
    EXPECT_TRUE(Ask([](HWND) { test::PressKey(GetFocus(), VK_RETURN); }));
    EXPECT_FALSE(Ask([](HWND) { test::PressKey(GetFocus(), VK_ESCAPE); }));
}

TEST_F(SettingsBoxTest, TabGoesThroughTheFieldsInReadingOrder) {
    Ask([](HWND window) {
        std::vector<int> order;
        HWND control = GetDlgItem(window, TX_Setting);
        for (int i = 0; i < 15; ++i) {
            order.push_back(GetDlgCtrlID(control));
            control = GetNextDlgTabItem(window, control, FALSE);
        }
        EXPECT_EQ(order, (std::vector<int>{TX_Setting, BT_ChooseFolder, TX_Setting + 1,
                                           BT_ChooseFolder + 1, TX_Setting + 2, BT_ChooseFolder + 2,
                                           TX_Setting + 3, TX_Setting + 4, TX_Setting + 5,
                                           TX_Setting + 6, TX_Setting + 7, TX_Setting + 8,
                                           TX_SettingsFile, IDOK, IDCANCEL}));
        Press(window, IDCANCEL);
    });
}

TEST_F(SettingsBoxTest, NothingIsCutAtAnyResolution) {
    Ask([](HWND window) {
        for (const WORD dpi : test::kResolutions) {
            // All programs are missing: two lines.
            test::ExpectWholeAt(window, dpi);
        }
        Press(window, IDCANCEL);
    });
}

}  // namespace
}  // namespace corvane
