// Rename and Properties in the real program.
#include <gtest/gtest.h>

#include <string>

#include "tests/ui/main_window_fixture.h"

namespace corvane::ui {
namespace {

using test::Narrow;

struct NamingUi : MainWindowFixture {
    std::wstring path = installation.File(L"ship.ve2");

    std::string TextOfFile() const { return test::ReadFileBytes(path); }
};

TEST_F(NamingUi, F2RenamesTheModelAndItStaysSelected) {
    const std::string before = TextOfFile();
    SelectRow(program, Control(LI_Sections), 1);
    const std::string name = Narrow(Rows(program, Control(LI_Sections)).at(1).cells.at(0));
    Type({VK_F2});
    const HWND box = program.Window(L"InputBox");
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(Narrow(TextOf(GetDlgItem(box, TX_Answer))), name);
    TypeText(L"Hold 3 & 4\n");
    ASSERT_TRUE(HasClosed(box));
    EXPECT_TRUE(WaitUntil(
        [&] { return Rows(program, Control(LI_Sections)).at(1).cells.at(0) == L"Hold 3 & 4"; }));
    EXPECT_EQ(SelectedRow(Control(LI_Sections)), 1);
    std::string expected = before;
    const size_t place = expected.find("\r\n" + name + "\r\n");
    ASSERT_NE(place, std::string::npos);
    expected.replace(place + 2, name.size(), "Hold 3 & 4");
    EXPECT_EQ(TextOfFile(), expected);
    TypeWithControl('Z');
    EXPECT_TRUE(WaitUntil(
        [&] { return Narrow(Rows(program, Control(LI_Sections)).at(1).cells.at(0)) == name; }));
    EXPECT_EQ(TextOfFile(), before);
}

TEST_F(NamingUi, AltEnterShowsWhatTheModelIs) {
    TypeWithAlt(VK_RETURN);
    const HWND box = program.Window(L"FM_Properties");
    ASSERT_NE(box, nullptr);
    const std::string text = Narrow(TextOf(GetDlgItem(box, TX_Properties)));
    for (const char* label : {"Name\t", "Kind\tSection\r\n", "Frame\t", "Breadth\t", "Depth\t",
                              "Panels\t", "Nodes\t", "Stiffeners\t", "Compartments\t",
                              "Written by\t", "Program\t", "Size of its block\t", "Identifier\t"}) {
        EXPECT_NE(text.find(label), std::string::npos) << label << " in " << text;
    }
    Type({VK_ESCAPE});
    EXPECT_TRUE(HasClosed(box));
    EXPECT_TRUE(FocusBecomes(main, LI_Sections));
}

}  // namespace
}  // namespace corvane::ui
