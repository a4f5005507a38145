#include "shell/rule_set.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "shell/state.h"
#include "tests/shell/fake_view.h"
#include "tests/shell/shown_database.h"

namespace corvane {
namespace {

using test::Database;
using test::Narrow;
using test::RecordedReports;
using test::ShownDatabase;
using Events = std::vector<std::string>;

TEST(RuleSetTest, AtTheStartComesFromTheSwitches) {
    const ShownDatabase window;
    EXPECT_EQ(CurrentRuleSet(), RuleSet::kQuor);
    shell.milMode = true;
    EXPECT_EQ(CurrentRuleSet(), RuleSet::kMil);
    shell.jbpMode = true;
    EXPECT_EQ(CurrentRuleSet(), RuleSet::kCsr) << "/JBP goes before /mil";
}

TEST(RuleSetTest, SetsItsFlagAndClearsTheOther) {
    const ShownDatabase window;
    const struct {
        RuleSet ruleSet;
        bool jbp, mil;
    } cases[] = {{RuleSet::kCsr, true, false},
                 {RuleSet::kMil, false, true},
                 {RuleSet::kCsr, true, false},
                 {RuleSet::kQuor, false, false},
                 {RuleSet::kMil, false, true}};
    for (const auto& example : cases) {
        RuleSetChosen(example.ruleSet);
        EXPECT_EQ(shell.jbpMode, example.jbp);
        EXPECT_EQ(shell.milMode, example.mil);
        EXPECT_EQ(CurrentRuleSet(), example.ruleSet);
    }
}

TEST(RuleSetTest, ReplacesEverySuffixOfTheTitle) {
    const ShownDatabase window;
    const struct {
        const wchar_t* before;
        RuleSet ruleSet;
        const wchar_t* after;
    } cases[] = {{L"Corvane", RuleSet::kCsr, L"Corvane JBP"},
                 {L"Corvane JBP", RuleSet::kQuor, L"Corvane"},
                 {L"Corvane JBP MIL", RuleSet::kCsr, L"Corvane JBP"},
                 {L"Corvane JBP MIL", RuleSet::kQuor, L"Corvane"},
                 {L"Corvane MIL JBP JBP", RuleSet::kMil, L"Corvane MIL"},
                 {L"Corvane JBP beta", RuleSet::kMil, L"Corvane JBP beta MIL"},
                 {L"Corvane", RuleSet::kQuor, L"Corvane"}};
    for (const auto& example : cases) {
        shell.title = example.before;
        RuleSetChosen(example.ruleSet);
        EXPECT_EQ(Narrow(shell.title), Narrow(example.after)) << Narrow(example.before);
    }
}

TEST(RuleSetTest, RedrawsTheRuleButtonAndTheCaption) {
    ShownDatabase window;
    window.Open(Database(1));
    shell.database.bsd.Titles(5).Assign(L"AURORA");
    RuleSetChosen(RuleSet::kMil);
    EXPECT_EQ(RecordedReports::events,
              (Events{"redraw rule button", "title Corvane MIL - ship.ve2 - AURORA"}));
}

}  // namespace
}  // namespace corvane
