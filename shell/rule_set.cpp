#include "shell/rule_set.h"

#include <iterator>
#include <utility>

#include "shell/restart.h"
#include "shell/state.h"
#include "shell/status_parts.h"

namespace corvane {

RuleSet CurrentRuleSet() {
    if (shell.jbpMode) return RuleSet::kCsr;
    return shell.milMode ? RuleSet::kMil : RuleSet::kQuor;
}

const wchar_t* RuleSetName(RuleSet ruleSet) {
    static constexpr const wchar_t* kNames[] = {L"QUOR", L"CSR for BC", L"QUOR MIL"};
    return kNames[static_cast<size_t>(ruleSet)];
}

void RuleSetChosen(RuleSet ruleSet) {
    shell.jbpMode = ruleSet == RuleSet::kCsr;
    shell.milMode = ruleSet == RuleSet::kMil;
    shell.view.redrawRuleButton();
    UpdateTitle();
    ShowCaptionAndParts();
    NoteRestart();
}

std::wstring WithoutRuleSetSuffixes(std::wstring title) {
    while (title.ends_with(kJbpSuffix) || title.ends_with(kMilSuffix)) {
        title.resize(title.size() - std::size(kJbpSuffix) + 1);
    }
    return title;
}

void UpdateTitle() {
    shell.title = WithoutRuleSetSuffixes(std::move(shell.title));
    if (shell.jbpMode) shell.title += kJbpSuffix;
    if (shell.milMode) shell.title += kMilSuffix;
}

}  // namespace corvane
