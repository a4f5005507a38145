// The table of docs/checking.md against the table of rules.
#include <gtest/gtest.h>

#include "database/check.h"
#include "platform/system.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

std::string TableOfRules() {
    std::string table =
        "| Rule | Severity | What is wrong | What it means | What can be done | Repair | Lost by a "
        "copy |\n"
        "|---|---|---|---|---|---|---|\n";
    for (int i = 0; i < static_cast<int>(CheckRule::kCount); ++i) {
        const RuleFacts& facts = FactsOf(static_cast<CheckRule>(i));
        Finding finding;
        finding.rule = facts.rule;
        const char* const severities[] = {"fault", "warning", "note"};
        table += "| " + test::Narrow(facts.title) + " | " +
                 severities[static_cast<size_t>(SeverityOf(finding))] + " | " +
                 test::Narrow(facts.text) + " | " + test::Narrow(facts.meaning) + " | " +
                 test::Narrow(facts.remedy) + " | " + (facts.isRepaired ? "yes" : "") + " | " +
                 (facts.isLostByCopy ? "yes" : "") + " |\n";
    }
    return table;
}

TEST(CheckingPage, HasTheTableOfRules) {
    const std::string page = test::ReadFileBytes(test::DataPath("../docs/checking.md"));
    const std::string expected = TableOfRules();
    if (page.ends_with("\n\n" + expected)) return;
    const std::wstring path = system::TemporaryDirectory() + L"checking_table.md";
    test::WriteFileBytes(path, expected);
    FAIL() << "the table of docs/checking.md is out of date; the right one is in "
           << test::Narrow(path);
}

}  // namespace
}  // namespace corvane
