// The rule set that the suite's programs check against: a pair of switches, the suffix of the
// application's title, and the option buttons OP_Rule.
#pragma once

#include <string>

namespace corvane {

// In the order of the options.
enum class RuleSet { kQuor, kCsr, kMil };

RuleSet CurrentRuleSet();
// As its option has it: "QUOR", "CSR for BC", "QUOR MIL".
const wchar_t* RuleSetName(RuleSet ruleSet);

// An option of OP_Rule was set: the switches, the title with its suffix, the window's caption and
// the picture of BT_Rule follow it.
void RuleSetChosen(RuleSet ruleSet);

// What the title ends with under the rule sets "CSR for BC" and "QUOR MIL".
inline constexpr wchar_t kJbpSuffix[] = L" JBP";
inline constexpr wchar_t kMilSuffix[] = L" MIL";

// The title without the rule-set suffixes at its end.
std::wstring WithoutRuleSetSuffixes(std::wstring title);
// Gives the application's title the suffixes of the switches that are set, both of them if need be.
void UpdateTitle();

}  // namespace corvane
