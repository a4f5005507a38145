#include "shell/finding_report.h"

#include <string>

namespace corvane {
namespace {

std::wstring SeverityText(Severity severity) {
    static constexpr const wchar_t* kTexts[kSeverities] = {L"Fault", L"Warning", L"Note"};
    return kTexts[static_cast<size_t>(severity)];
}

std::wstring ModelOf(const Finding& finding) {
    if (!finding.isInModel || finding.number == 0) return finding.name;
    return std::to_wstring(finding.number) + L' ' + finding.name;
}

std::wstring DetailsOf(const Finding& finding) {
    const RuleFacts& facts = FactsOf(finding.rule);
    return std::wstring(facts.title) + L": " + TextOf(finding) + L"\rWhat it means: " +
           facts.meaning + L"\rWhat can be done: " + facts.remedy;
}

}  // namespace

Report ReportOfFindings(const std::vector<Finding>& findings) {
    Report report;
    report.columns = {{L"Severity", L"Warning"},
                      {L"Line", L"1000000", true},
                      {L"Model", L"12 Frame 100 to 120"},
                      {L"What is wrong", L"The model's identifier is also that of the model in"}};
    for (const Finding& finding : findings) {
        const Severity severity = SeverityOf(finding);
        const std::wstring line = finding.line > 0 ? std::to_wstring(finding.line) : L"";
        report.rows.push_back({{SeverityText(severity), line, ModelOf(finding), TextOf(finding)},
                               DetailsOf(finding),
                               severity});
    }
    return report;
}

}  // namespace corvane
