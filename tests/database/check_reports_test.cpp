// Damaged databases with the exact text of the report on each (tests/golden/check_reports.txt).
#include <gtest/gtest.h>

#include <set>

#include "tests/database/check_damage.h"
#include "tests/support/recorded_reports.h"

namespace corvane {
namespace {

using test::Joined;
using test::LinesOf;

struct DamagedCase {
    std::string name;
    std::vector<std::string> edits;
    std::vector<std::string> report;
};

// Marks of the table: \t, \1, \{N C}.
std::string Unescaped(const std::string& text) {
    std::string result;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            result += text[i];
        } else if (text[++i] == '{') {
            const size_t blank = text.find(' ', i);
            result.append(std::stoul(text.substr(i + 1, blank - i - 1)), text[blank + 1]);
            i = blank + 2;
        } else {
            result += text[i] == 't' ? '\t' : '\1';
        }
    }
    return result;
}

std::vector<DamagedCase> Cases() {
    std::vector<DamagedCase> cases;
    for (std::string line :
         LinesOf(test::ReadFileBytes(test::DataPath("golden/check_reports.txt")))) {
        while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) line.pop_back();
        if (line.starts_with("case ")) {
            cases.push_back({line.substr(5), {}, {}});
        } else if (line.starts_with("= ") && !cases.empty()) {
            cases.back().report.push_back(line.substr(2));
        } else if (!line.empty() && !cases.empty()) {
            cases.back().edits.push_back(line);
        }
    }
    return cases;
}

// Edits count the lines of the sound database: they are done at the lines, and joined at the end.
std::string Damaged(const DamagedCase& damage) {
    std::vector<std::string> lines = LinesOf(test::SoundDatabase());
    std::vector<std::string> before(lines.size());
    size_t cut = 0;
    size_t last = lines.size();
    for (const std::string& edit : damage.edits) {
        const size_t verb = edit.find(' ');
        const size_t number = std::stoul(edit.substr(verb + 1));
        const size_t blank = edit.find(' ', verb + 1);
        const std::string text =
            blank == std::string::npos ? "" : Unescaped(edit.substr(blank + 1)) + "\r\n";
        const std::string what = edit.substr(0, verb);
        if (what == "put") {
            lines.at(number - 1) = text;
        } else if (what == "before") {
            before.at(number - 1) += text;
        } else if (what == "drop") {
            lines.at(number - 1).clear();
        } else if (what == "end") {
            last = number;
        } else {
            cut = number;
        }
    }
    std::string text;
    for (size_t i = 0; i < last; ++i) text += before[i] + lines[i];
    return text.substr(0, text.size() - cut);
}

TEST(CheckReports, SoundDatabaseHasNoFinding) {
    test::RecordedReports screen;
    const test::CheckedFile checked = test::Checked(test::DataPath("golden/checked.ve2"));
    EXPECT_TRUE(checked.isDone);
    EXPECT_EQ(test::ReportOf(checked), std::vector<std::string>{});
    EXPECT_EQ(checked.result.models, 4);
    EXPECT_EQ(checked.result.lines, 417);
    EXPECT_TRUE(checked.result.repairs.empty());
}

TEST(CheckReports, EveryDamageHasItsExactReport) {
    test::RecordedReports screen;
    test::TemporaryFolder folder;
    const std::wstring path = folder.File(L"ship.ve2");
    const std::vector<DamagedCase> cases = Cases();
    EXPECT_GE(cases.size(), 40U);
    for (const DamagedCase& damage : cases) {
        SCOPED_TRACE(damage.name);
        const std::string text = Damaged(damage);
        EXPECT_NE(text, test::SoundDatabase());
        test::WriteFileBytes(path, text);
        const test::CheckedFile checked = test::Checked(path);
        EXPECT_TRUE(checked.isDone);
        EXPECT_EQ(test::ReportOf(checked), damage.report);
    }
}

// The rules that the table does not reach have tests of their own in check_test.cpp.
TEST(CheckReports, EveryRuleIsBrokenByACase) {
    test::RecordedReports screen;
    test::TemporaryFolder folder;
    const std::wstring path = folder.File(L"ship.ve2");
    std::set<CheckRule> broken = {CheckRule::kLeftOverCopy, CheckRule::kLeftOverText};
    for (const DamagedCase& damage : Cases()) {
        test::WriteFileBytes(path, Damaged(damage));
        for (const Finding& finding : test::Checked(path).findings) broken.insert(finding.rule);
    }
    for (int rule = 0; rule < static_cast<int>(CheckRule::kCount); ++rule) {
        const auto each = static_cast<CheckRule>(rule);
        EXPECT_TRUE(broken.contains(each)) << test::Narrow(FactsOf(each).title);
    }
}

}  // namespace
}  // namespace corvane
