// The box Properties as Windows shows it: its field, its buttons.
#include "ui/dialogs/properties_box.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/shell/fake_view.h"
#include "tests/ui/dialogs/modal_window.h"
#include "ui/base/control_ids.h"

namespace corvane {
namespace {

using test::Press;
using test::TextOf;

struct PropertiesBoxTest : testing::Test {
    test::FakeView kept;
    std::wstring text = L"Name\tHold & 3\rKind\tSection\rIdentifier\t{1}";

    void Show(const std::function<void(HWND)>& look) const {
        const test::WhenOpen open(kPropertiesBoxClass, look);
        ShowProperties(L"Properties Section", text);
    }
};

TEST_F(PropertiesBoxTest, ShowsALineForEachProperty) {
    Show([](HWND window) {
        EXPECT_EQ(TextOf(window, TX_Properties),
                  "Name\tHold & 3\r\nKind\tSection\r\nIdentifier\t{1}");
        const auto style = GetWindowLongPtrW(GetDlgItem(window, TX_Properties), GWL_STYLE);
        EXPECT_NE(style & ES_READONLY, 0);
        EXPECT_EQ(GetFocus(), GetDlgItem(window, IDCANCEL));
        Press(window, IDCANCEL);
    });
}

TEST_F(PropertiesBoxTest, CopyAllPutsTheTextOnTheClipboardAndTheBoxStays) {
    Show([](HWND window) {
        SendMessageW(GetDlgItem(window, BT_CopyAll), BM_CLICK, 0, 0);
        ASSERT_NE(OpenClipboard(window), FALSE);
        const HANDLE data = GetClipboardData(CF_UNICODETEXT);
        const auto* letters = data == nullptr ? nullptr : static_cast<wchar_t*>(GlobalLock(data));
        EXPECT_EQ(test::Narrow(letters == nullptr ? L"" : letters),
                  "Name\tHold & 3\r\nKind\tSection\r\nIdentifier\t{1}");
        if (letters != nullptr) GlobalUnlock(data);
        CloseClipboard();
        EXPECT_TRUE(IsWindowVisible(window));
        Press(window, IDCANCEL);
    });
}

TEST_F(PropertiesBoxTest, EnterAndEscCloseTheBox) {
    for (const WPARAM key : {VK_RETURN, VK_ESCAPE}) {
        for (const int from : {int{TX_Properties}, int{IDCANCEL}}) {
            Show([key, from](HWND window) {
                SetFocus(GetDlgItem(window, from));
                test::PressKey(GetDlgItem(window, from), key);
            });
        }
    }
}

TEST_F(PropertiesBoxTest, NothingIsCutAtAnyResolution) {
    text.clear();
    for (int i = 0; i < 18; ++i) text += L"A property\tof a model\r";
    Show([](HWND window) {
        for (const WORD dpi : test::kResolutions) {
            test::ExpectWholeAt(window, dpi);
            const HWND field = GetDlgItem(window, TX_Properties);
            RECT inner{};
            SendMessageW(field, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&inner));
            const LONG line = test::TextSizeOf(window, LB_Properties).cy;
            EXPECT_GE(inner.bottom - inner.top, 18 * line) << dpi;
        }
        Press(window, IDCANCEL);
    });
}

}  // namespace
}  // namespace corvane
