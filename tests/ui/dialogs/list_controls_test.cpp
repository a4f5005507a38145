#include "ui/dialogs/list_controls.h"

#include <gtest/gtest.h>

#include "tests/shell/fake_view.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using test::FakeView;
using test::RecordedReports;

struct ListBox {
    HWND window;

    explicit ListBox(DWORD style)
        : window(CreateWindowExW(0, L"LISTBOX", L"", WS_POPUP | style, 0, 0, 100, 100, nullptr,
                                 nullptr, GetModuleHandleW(nullptr), nullptr)) {}
    ~ListBox() { DestroyWindow(window); }
    ListBox(const ListBox&) = delete;
    ListBox& operator=(const ListBox&) = delete;

    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageW(window, message, wParam, lParam);
    }
    void AddThree() const {
        AddListItemWithData(window, L"two", 2);
        AddListItemWithData(window, L"one", 1);
        AddListItemWithData(window, L"three", -3);
    }
};

TEST(AddListItemWithData, ItemsAreAppendedWithTheirNumbers) {
    const ListBox list(LBS_HASSTRINGS);
    list.AddThree();
    ASSERT_EQ(list.Send(LB_GETCOUNT), 3);
    wchar_t text[16];
    list.Send(LB_GETTEXT, 2, reinterpret_cast<LPARAM>(text));
    EXPECT_EQ(std::wstring(text), L"three");
    EXPECT_EQ(list.Send(LB_GETITEMDATA, 0), 2);
    EXPECT_EQ(list.Send(LB_GETITEMDATA, 1), 1);
    EXPECT_EQ(list.Send(LB_GETITEMDATA, 2), -3);
}

TEST(AddListItemWithData, NumberStaysWithItsItemInASortedList) {
    const ListBox list(LBS_HASSTRINGS | LBS_SORT);
    list.AddThree();
    EXPECT_EQ(list.Send(LB_GETITEMDATA, 0), 1);
    EXPECT_EQ(list.Send(LB_GETITEMDATA, 1), -3);
    EXPECT_EQ(list.Send(LB_GETITEMDATA, 2), 2);
}

TEST(SelectAllInList, SelectsAndDeselectsEveryItem) {
    const FakeView screen;
    const ListBox list(LBS_HASSTRINGS | LBS_EXTENDEDSEL);
    list.AddThree();
    SelectAllInList(list.window);
    EXPECT_EQ(list.Send(LB_GETSELCOUNT), 3);
    EXPECT_EQ(RecordedReports::events, std::vector<std::string>{"pending"});
    SelectAllInList(list.window, false);
    EXPECT_EQ(list.Send(LB_GETSELCOUNT), 0);
}

TEST(SelectAllInList, DisabledListStaysAsItIs) {
    const FakeView screen;
    const ListBox list(LBS_HASSTRINGS | LBS_MULTIPLESEL);
    list.AddThree();
    EnableWindow(list.window, FALSE);
    SelectAllInList(list.window);
    EXPECT_EQ(list.Send(LB_GETSELCOUNT), 0);
    EXPECT_TRUE(RecordedReports::events.empty());
}

TEST(SelectAllInList, EmptyListIsNoError) {
    const FakeView screen;
    const ListBox list(LBS_HASSTRINGS | LBS_EXTENDEDSEL);
    SelectAllInList(list.window);
    EXPECT_EQ(list.Send(LB_GETSELCOUNT), 0);
}

TEST(SelectAllInList, ListForOneChoiceLosesIt) {
    const FakeView screen;
    const ListBox list(LBS_HASSTRINGS);
    list.AddThree();
    list.Send(LB_SETCURSEL, 1);
    SelectAllInList(list.window);
    EXPECT_EQ(list.Send(LB_GETCURSEL), LB_ERR);
}

}  // namespace
}  // namespace corvane
