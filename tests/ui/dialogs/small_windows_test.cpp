// The splash, the About box and the input box as Windows shows them: real controls, read with
// their messages.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "report/messages.h"
#include "shell/state.h"
#include "tests/shell/fake_view.h"
#include "tests/support/support.h"
#include "tests/ui/dialogs/modal_window.h"
#include "ui/base/control_ids.h"
#include "ui/base/controls.h"
#include "ui/base/dpi.h"
#include "ui/base/own_window.h"
#include "ui/dialogs/about.h"
#include "ui/dialogs/input_box.h"
#include "ui/dialogs/splash.h"
#include "ui/main_window/windows_view.h"

namespace corvane {
namespace {

using test::ExpectNothingIsCut;
using test::ExpectWholeAt;
using test::IsShown;
using test::kResolutions;
using test::PlaceIn;
using test::Press;
using test::PressKey;
using test::ScaleTo;
using test::TextOf;
using test::TextSizeOf;
using test::WhenOpen;

constexpr ProgramVersion kLastOfficial{1, 0, 1999};
constexpr ProgramVersion kFirstExperimental{1, 0, 2000};

// ---- The input box -----------------------------------------------------------------------------

struct InputBoxTest : testing::Test {
    test::FakeView kept;
    std::wstring answer = L"Copy of Frame 10";

    bool Ask(const std::function<void(HWND)>& look,
             const std::wstring& question = L"Input the name of the copy") {
        const WhenOpen open(kInputBoxClass, look);
        return AskText(L"Copy Section", question, answer);
    }
    static HWND Field(HWND window) { return GetDlgItem(window, TX_Answer); }
};

TEST_F(InputBoxTest, ShowsTitleQuestionAndTheProposalSelected) {
    Ask([](HWND window) {
        EXPECT_EQ(WindowText(window), L"Copy Section");
        EXPECT_EQ(TextOf(window, LB_Question), "Input the name of the copy");
        EXPECT_EQ(TextOf(window, TX_Answer), "Copy of Frame 10");
        DWORD first = 1;
        DWORD last = 0;
        SendMessageW(Field(window), EM_GETSEL, reinterpret_cast<WPARAM>(&first),
                     reinterpret_cast<LPARAM>(&last));
        EXPECT_EQ(first, 0U);
        EXPECT_EQ(last, 16U);
        EXPECT_EQ(GetFocus(), Field(window));
        Press(window, IDCANCEL);
    });
}

TEST_F(InputBoxTest, OkGivesWhatIsInTheField) {
    EXPECT_TRUE(Ask([](HWND window) {
        SetWindowTextW(Field(window), L" 12 é* ");
        Press(window, IDOK);
    }));
    EXPECT_EQ(answer, L" 12 é* ");
}

TEST_F(InputBoxTest, CancelAndCloseLeaveTheAnswer) {
    EXPECT_FALSE(Ask([](HWND window) {
        SetWindowTextW(Field(window), L"typed");
        Press(window, IDCANCEL);
    }));
    EXPECT_FALSE(Ask([](HWND window) {
        SetWindowTextW(Field(window), L"typed");
        PostMessageW(window, WM_CLOSE, 0, 0);
    }));
    EXPECT_EQ(answer, L"Copy of Frame 10");
}

TEST_F(InputBoxTest, EnterAcceptsAndEscCancels) {
    EXPECT_TRUE(Ask([](HWND window) { PressKey(Field(window), VK_RETURN); }));
    EXPECT_FALSE(Ask([](HWND window) { PressKey(Field(window), VK_ESCAPE); }));
}

TEST_F(InputBoxTest, EnterOnTheCancelButtonCancels) {
    EXPECT_FALSE(Ask([](HWND window) {
        SendMessageW(window, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(window, IDCANCEL)),
                     TRUE);
        PressKey(GetDlgItem(window, IDCANCEL), VK_RETURN);
    }));
}

TEST_F(InputBoxTest, TypingReplacesTheProposal) {
    EXPECT_TRUE(Ask([](HWND window) {
        for (const wchar_t letter : {L'A', L'é', L'-'})
            PostMessageW(Field(window), WM_CHAR, letter, 0);
        PressKey(Field(window), VK_RETURN);
    }));
    EXPECT_EQ(answer, L"Aé-");
}

TEST_F(InputBoxTest, TabOrderIsFieldOkCancel) {
    Ask([](HWND window) {
        HWND control = Field(window);
        control = GetNextDlgTabItem(window, control, FALSE);
        EXPECT_EQ(GetDlgCtrlID(control), IDOK);
        control = GetNextDlgTabItem(window, control, FALSE);
        EXPECT_EQ(GetDlgCtrlID(control), IDCANCEL);
        control = GetNextDlgTabItem(window, control, FALSE);
        EXPECT_EQ(GetDlgCtrlID(control), TX_Answer);
        Press(window, IDCANCEL);
    });
}

TEST_F(InputBoxTest, QuestionNamesTheFieldForScreenReaders) {
    Ask([](HWND window) {
        EXPECT_EQ(GetDlgCtrlID(GetWindow(Field(window), GW_HWNDPREV)), LB_Question);
        Press(window, IDCANCEL);
    });
}

TEST_F(InputBoxTest, AThousandCharactersCanBeTypedAndNoMore) {
    answer = std::wstring(999, L'x');
    EXPECT_TRUE(Ask([](HWND window) {
        SendMessageW(Field(window), EM_SETSEL, 999, 999);
        SendMessageW(Field(window), WM_CHAR, L'y', 0);
        SendMessageW(Field(window), WM_CHAR, L'z', 0);
        Press(window, IDOK);
    }));
    EXPECT_EQ(answer, std::wstring(999, L'x') + L'y');
}

TEST_F(InputBoxTest, LongerProposalIsKeptWhole) {
    answer = L"Copy of " + std::wstring(1000, L'x');
    EXPECT_TRUE(Ask([](HWND window) { Press(window, IDOK); }));
    EXPECT_EQ(answer, L"Copy of " + std::wstring(1000, L'x'));
}

TEST_F(InputBoxTest, LongQuestionWraps) {
    std::wstring question;
    for (int i = 0; i < 40; ++i) question += L"a question of many words ";
    Ask(
        [](HWND window) {
            const RECT label = PlaceIn(window, LB_Question);
            EXPECT_GT(label.bottom - label.top, 5 * TextSizeOf(window, IDOK).cy);
            EXPECT_LT(label.bottom, PlaceIn(window, TX_Answer).top);
            ExpectNothingIsCut(window, {LB_Question});
            Press(window, IDCANCEL);
        },
        question);
}

TEST_F(InputBoxTest, QuestionLongerThanTheScreenLeavesTheFieldInView) {
    const std::wstring question(60000, L'W');
    Ask(
        [](HWND window) {
            RECT place{};
            GetWindowRect(window, &place);
            EXPECT_GE(place.top, 0);
            EXPECT_LE(place.bottom, GetSystemMetrics(SM_CYSCREEN));
            ExpectNothingIsCut(window, {LB_Question});
            Press(window, IDCANCEL);
        },
        question);
}

TEST_F(InputBoxTest, EveryResolutionScalesItWhole) {
    Ask([](HWND window) {
        ScaleTo(window, 96);
        const RECT before = PlaceIn(window, TX_Answer);
        for (const WORD dpi : kResolutions) {
            ExpectWholeAt(window, dpi);
            const RECT field = PlaceIn(window, TX_Answer);
            EXPECT_NEAR(field.right - field.left, (before.right - before.left) * dpi / 96, 2);
            EXPECT_LT(field.bottom, PlaceIn(window, IDOK).top);
        }
        Press(window, IDCANCEL);
    });
}

// ---- The About box -----------------------------------------------------------------------------

struct AboutTest : testing::Test {
    test::FakeView kept;

    static void Show(const std::function<void(HWND)>& look,
                     const ProgramVersion& version = kLastOfficial) {
        const WhenOpen open(kAboutClass, look);
        ShowAbout(L"Corvane, the heading", version);
    }
};

TEST_F(AboutTest, ShowsTitleHeadingAndNotice) {
    shell.title = L"Corvane JBP";
    Show([](HWND window) {
        EXPECT_EQ(WindowText(window), L"About");
        EXPECT_EQ(TextOf(window, LB_Title), "Corvane JBP");
        EXPECT_EQ(TextOf(window, LB_Version), "Corvane, the heading");
        EXPECT_EQ(TextOf(window, LB_Notice), test::Narrow(GetMessage(kMsgLegalNoticeLabel)));
        const std::string notice = TextOf(window, TX_Notice);
        EXPECT_NE(notice.find("warranty"), std::string::npos);
        EXPECT_NE(notice.find("turn to the person"), std::string::npos);
        EXPECT_EQ(notice.find("\xC2\xB2"), std::string::npos) << "a line break was left";
        EXPECT_EQ(GetFocus(), GetDlgItem(window, BT_Ok));
        Press(window, BT_Ok);
    });
}

TEST_F(AboutTest, Revision1999ShowsNoWarningAnd2000Both) {
    Show([](HWND window) {
        EXPECT_FALSE(IsShown(window, LB_Warning1));
        EXPECT_FALSE(IsShown(window, LB_Warning2));
        Press(window, BT_Ok);
    });
    Show(
        [](HWND window) {
            EXPECT_TRUE(IsShown(window, LB_Warning1));
            EXPECT_TRUE(IsShown(window, LB_Warning2));
            EXPECT_EQ(TextOf(window, LB_Warning1), "WARNING: Experimental version");
            EXPECT_EQ(TextOf(window, LB_Warning2), "DO NOT USE FOR OFFICIAL CALCULATIONS");
            Press(window, BT_Ok);
        },
        kFirstExperimental);
}

TEST_F(AboutTest, EnterAndEscCloseItFromTheButtonAndFromTheNotice) {
    for (const int id : {int{BT_Ok}, int{TX_Notice}}) {
        for (const WPARAM key : {VK_RETURN, VK_ESCAPE}) {
            Show([&](HWND window) {
                SendMessageW(window, WM_NEXTDLGCTL,
                             reinterpret_cast<WPARAM>(GetDlgItem(window, id)), TRUE);
                PressKey(GetDlgItem(window, id), key);
            });
        }
    }
}

TEST_F(AboutTest, NoticeCanBeReadButNotChanged) {
    Show([](HWND window) {
        const HWND notice = GetDlgItem(window, TX_Notice);
        EXPECT_NE(GetWindowLongPtrW(notice, GWL_STYLE) & ES_READONLY, 0);
        EXPECT_EQ(GetDlgCtrlID(GetWindow(notice, GW_HWNDPREV)), LB_Notice);
        // All lines are in view.
        const LRESULT lines = SendMessageW(notice, EM_GETLINECOUNT, 0, 0);
        RECT area{};
        SendMessageW(notice, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&area));
        EXPECT_GE(area.bottom - area.top, lines * TextSizeOf(window, LB_Notice).cy);
        Press(window, BT_Ok);
    });
}

TEST_F(AboutTest, EveryResolutionScalesItWhole) {
    Show(
        [](HWND window) {
            for (const WORD dpi : kResolutions) {
                ExpectWholeAt(window, dpi);
                EXPECT_LE(PlaceIn(window, LB_Warning2).bottom, PlaceIn(window, LB_Notice).top);
                EXPECT_LE(PlaceIn(window, TX_Notice).bottom, PlaceIn(window, BT_Ok).top);
            }
            Press(window, BT_Ok);
        },
        kFirstExperimental);
}

// ---- The splash --------------------------------------------------------------------------------

struct SplashTest : testing::Test {
    test::FakeView kept;
    ~SplashTest() override { UnloadSplash(); }

    static HWND Show(const ProgramVersion& version = kProgramVersion) {
        ShowSplash(L"Corvane JBP", version);
        return OwnWindow(kSplashClass);
    }
};

TEST_F(SplashTest, ShowsTitleAndVersionOnTopAndGoes) {
    const HWND splash = Show();
    ASSERT_NE(splash, nullptr);
    EXPECT_EQ(TextOf(splash, LB_Title), "Corvane JBP");
    EXPECT_EQ(TextOf(splash, LB_Version), "Version 1.0");
    EXPECT_NE(GetWindowLongPtrW(splash, GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
    UnloadSplash();
    EXPECT_EQ(OwnWindow(kSplashClass), nullptr);
    UnloadSplash();
}

TEST_F(SplashTest, LabelOf32BitsIsHidden) {
    for (const ProgramVersion& version : {kLastOfficial, kFirstExperimental}) {
        const HWND splash = Show(version);
        EXPECT_EQ(TextOf(splash, LB_32bits), "32 bits");
        EXPECT_FALSE(IsShown(splash, LB_32bits));
    }
}

TEST_F(SplashTest, Revision1999ShowsNoWarningAnd2000BothBelowTheVersion) {
    HWND splash = Show(kLastOfficial);
    EXPECT_FALSE(IsShown(splash, LB_Warning1));
    EXPECT_FALSE(IsShown(splash, LB_Warning2));
    splash = Show(kFirstExperimental);
    EXPECT_TRUE(IsShown(splash, LB_Warning1));
    EXPECT_TRUE(IsShown(splash, LB_Warning2));
    EXPECT_EQ(TextOf(splash, LB_Version), "Version 1.0 t0");
    EXPECT_LE(PlaceIn(splash, LB_Version).bottom, PlaceIn(splash, LB_Warning1).top);
    EXPECT_LE(PlaceIn(splash, LB_Warning1).bottom, PlaceIn(splash, LB_Warning2).top);
    ExpectNothingIsCut(splash);
}

TEST_F(SplashTest, TitleIsBesideThePictureAndTheVersionBelowIt) {
    const HWND splash = Show();
    EXPECT_LE(PlaceIn(splash, IM_Velk).right, PlaceIn(splash, LB_Title).left);
    EXPECT_LE(PlaceIn(splash, LB_Title).bottom, PlaceIn(splash, LB_Version).top);
    const RECT frame = PlaceIn(splash, PAN_Product);
    for (const int id : {int{IM_Velk}, int{LB_Title}, int{LB_Version}}) {
        const RECT place = PlaceIn(splash, id);
        EXPECT_GE(place.left, frame.left) << id;
        EXPECT_GE(place.top, frame.top) << id;
        EXPECT_LE(place.right, frame.right) << id;
        EXPECT_LE(place.bottom, frame.bottom) << id;
    }
    ExpectNothingIsCut(splash);
}

TEST_F(SplashTest, SecondOneReplacesTheFirst) {
    const HWND first = Show();
    const HWND second = Show();
    EXPECT_FALSE(IsWindow(first));
    EXPECT_TRUE(IsWindow(second));
}

}  // namespace
}  // namespace corvane
