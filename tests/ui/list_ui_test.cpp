// The list of models in the real program, by mouse and by keyboard.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/ui/main_window_fixture.h"

namespace corvane::ui {
namespace {

using test::Narrow;
using Names = std::vector<std::string>;

struct ListUiTest : MainWindowFixture {
    HWND List() const { return Control(LI_Sections); }
    HWND Head() const { return reinterpret_cast<HWND>(Send(List(), LVM_GETHEADER, 0, 0)); }

    // The numbers of the models from the top, and whether they become these.
    std::string Numbers() const {
        std::string numbers;
        for (const Row& row : Rows(program, List())) numbers += Narrow(row.cells.at(2)) + ' ';
        return numbers;
    }
    bool NumbersBecome(const std::string& numbers) const {
        return WaitUntil([&] { return Numbers() == numbers; });
    }
    // Alt+V, which opens the menu View, and the letter of a command there.
    bool ChooseInView(WORD letter) const {
        TypeWithAlt('V');
        if (!MenuIsOpen(true)) return false;
        Type({letter});
        return MenuIsOpen(false);
    }
    // Clicks the head of a column with the mouse, near its left edge.
    void ClickHead(int column) const {
        RECT place{};
        GetWindowRect(Head(), &place);
        LONG left = place.left;
        for (WPARAM i = 0; i < static_cast<WPARAM>(column); ++i) {
            left += static_cast<LONG>(Send(List(), LVM_GETCOLUMNWIDTH, i, 0));
        }
        Click({left + 12, (place.top + place.bottom) / 2});
    }
};

constexpr char kFileOrder[] = " 1  2  3  4  5  6  7  8  9 10 11 12 13 14 ";

TEST_F(ListUiTest, ClicksOnAHeadSortUpDownAndBackToTheFilesOrder) {
    ASSERT_EQ(Numbers(), kFileOrder);
    ClickHead(1);
    EXPECT_TRUE(NumbersBecome(" 1 10  2  3  4 11  5  6  7  8 12  9 13 14 ")) << Numbers();
    ClickHead(1);
    EXPECT_TRUE(NumbersBecome(" 9 12  8  7  6  5 11  4  3  2 10  1 13 14 ")) << Numbers();
    EXPECT_EQ(SelectedRow(List()), 11) << "the model that was selected stays so";
    ClickHead(1);
    EXPECT_TRUE(NumbersBecome(kFileOrder)) << Numbers();
    EXPECT_EQ(SelectedRow(List()), 0);
}

TEST_F(ListUiTest, MenuSortsAndEditActsOnTheModelThatIsSelected) {
    ASSERT_TRUE(ChooseInView('N'));
    ASSERT_TRUE(NumbersBecome("12 11 10  1  9  8  7  6  4  3  2  5 14 13 ")) << Numbers();
    Type({VK_HOME});
    EXPECT_TRUE(ShowsPosition(L"X = 199.1 m")) << "the collision bulkhead";
    Type({VK_DELETE});
    const Box box = WaitForBox(program);
    EXPECT_NE(Message(box).find("Collision bulkhead"), std::string::npos) << Message(box);
    ASSERT_TRUE(Press(box, IDYES));
    EXPECT_TRUE(NumbersBecome("11 10  1  9  8  7  6  4  3  2  5 13 12 ")) << Numbers();
}

TEST_F(ListUiTest, LettersFindNamesInTheOrderThatIsShown) {
    ClickHead(0);
    ASSERT_TRUE(NumbersBecome("12 11 10  1  9  8  7  6  4  3  2  5 14 13 ")) << Numbers();
    Type({'H'});
    EXPECT_TRUE(ShowsPosition(L"X = 187.9 m")) << "hold 1";
    Type({VK_END});
    EXPECT_TRUE(WaitUntil([&] { return SelectedRow(List()) == 13; }));
}

}  // namespace
}  // namespace corvane::ui
