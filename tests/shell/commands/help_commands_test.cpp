#include "shell/commands/help_commands.h"

#include <gtest/gtest.h>

#include "shell/state.h"
#include "tests/shell/fake_view.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using Events = std::vector<std::string>;

TEST(HelpCommands, AboutBoxIsHeadedByTitleAndVersion) {
    const test::FakeView screen;
    ME_HelpAbout_Click();
    EXPECT_EQ(test::RecordedReports::events, Events{"about Corvane v1.0"});
}

TEST(HelpCommands, HeadingFollowsTheRuleSetAndDebugMode) {
    const test::FakeView screen;
    shell.title = L"Corvane MIL";
    shell.debugMode = true;
    ME_HelpAbout_Click();
    EXPECT_EQ(test::RecordedReports::events, Events{"about Corvane MIL v1.0 (r0)"});
}

}  // namespace
}  // namespace corvane
