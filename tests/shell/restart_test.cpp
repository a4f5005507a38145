#include "shell/restart.h"

#include <gtest/gtest.h>

#include "shell/rule_set.h"
#include "tests/shell/command_support.h"

namespace corvane {
namespace {

using test::Narrow;

struct Restart : test::CommandTest {
    static inline std::vector<std::string> given;

    Restart() {
        given.clear();
        shell.view.setRestart = [](const std::wstring& arguments) {
            given.push_back(Narrow(arguments));
        };
    }
};

TEST_F(Restart, FollowsTheOpenDatabaseAndTheRuleSet) {
    MakeOpen(L"a ship.ve2");
    RefreshMainWindow();
    const std::string first = "\"" + Narrow(File(L"a ship.ve2")) + "\"";
    EXPECT_EQ(given, std::vector{first});
    RuleSetChosen(RuleSet::kMil);
    MakeOpen(L"b.ve2");
    RefreshMainWindow();
    RuleSetChosen(RuleSet::kCsr);
    RuleSetChosen(RuleSet::kQuor);
    const std::string second = "\"" + Narrow(File(L"b.ve2")) + "\"";
    EXPECT_EQ(given,
              (std::vector{first, first + " /mil", second + " /mil", second + " /JBP", second}));
}

TEST_F(Restart, DebugModeIsNotStartedAgain) {
    shell.debugMode = true;
    MakeOpen(L"ship.ve2");
    EXPECT_EQ(Narrow(RestartArguments()), "\"" + Narrow(File(L"ship.ve2")) + "\"");
}

TEST_F(Restart, IsNotAskedForWithoutADatabase) {
    RefreshMainWindow();
    EXPECT_TRUE(given.empty());
}

}  // namespace
}  // namespace corvane
