// The About box of the real program.
#include <gtest/gtest.h>

#include <string>

#include "shell/commands/commands.h"
#include "tests/support/support.h"
#include "tests/ui/driver.h"
#include "ui/base/control_ids.h"

namespace corvane::ui {
namespace {

using test::Narrow;

struct AboutUi : testing::Test {
    Settings settings;
    Installation installation;

    static std::string Text(HWND box, int id) { return Narrow(TextOf(GetDlgItem(box, id))); }
};

TEST_F(AboutUi, ShowsTitleVersionAndNoticeAndNoWarning) {
    const Program program(installation, L"/mil");
    const HWND main = program.Main();
    ASSERT_NE(main, nullptr);
    Choose(main, ME_HelpAbout);
    const HWND box = program.Window(L"FM_About");
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(Narrow(TextOf(box)), "About");
    EXPECT_EQ(Text(box, LB_Title), "Corvane MIL");
    EXPECT_EQ(Text(box, LB_Version), "Corvane MIL v1.0");
    EXPECT_EQ(Text(box, TX_Notice).rfind("Corvane keeps the hull models and the Basic", 0), 0U);
    EXPECT_NE(Text(box, TX_Notice).find("warranty"), std::string::npos);
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(box, LB_Warning1)));
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(box, LB_Warning2)));
    EXPECT_EQ(GetWindow(box, GW_OWNER), main);
    EXPECT_FALSE(IsWindowEnabled(main));
    EXPECT_TRUE(PressButton(box, BT_Ok));
    EXPECT_TRUE(IsWindowEnabled(main));
}

}  // namespace
}  // namespace corvane::ui
