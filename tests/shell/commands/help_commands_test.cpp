#include "shell/commands/help_commands.h"

#include <gtest/gtest.h>

#include "shell/state.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using Events = std::vector<std::string>;

TEST(HelpCommands, AboutBoxIsHeadedByTitleAndVersion) {
    const test::RecordingScreen screen;
    ME_HelpAbout_Click();
    EXPECT_EQ(test::RecordingScreen::events, Events{"about Corvanev1.0"});
}

TEST(HelpCommands, HeadingFollowsTheRuleSetAndDebugMode) {
    const test::RecordingScreen screen;
    shell.title = L"Corvane MIL";
    shell.debugMode = true;
    ME_HelpAbout_Click();
    EXPECT_EQ(test::RecordingScreen::events, Events{"about Corvane MILv1.0 (r0)"});
}

}  // namespace
}  // namespace corvane
