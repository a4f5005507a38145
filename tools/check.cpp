// The command that checks a database.
#include "database/check.h"

#include <set>
#include <vector>

#include "shell/exchange_boxes.h"
#include "tools/console.h"
#include "tools/formats.h"
#include "tools/tool_commands.h"

namespace corvane {
namespace {

// ASCII words, the same in every language.
std::wstring SeverityKey(Severity severity) {
    constexpr const wchar_t* kKeys[kSeverities] = {L"fault", L"warning", L"note"};
    return kKeys[static_cast<size_t>(severity)];
}

// The rules that were broken, each once, in the order of the table.
std::set<CheckRule> RulesOf(const std::vector<Finding>& findings) {
    std::set<CheckRule> rules;
    for (const Finding& finding : findings) rules.insert(finding.rule);
    return rules;
}

std::wstring CountText(const CheckResult& result) {
    return L"faults: " + std::to_wstring(result.findings[0]) + L", warnings: " +
           std::to_wstring(result.findings[1]) + L", notes: " +
           std::to_wstring(result.findings[2]) + L"; models: " + std::to_wstring(result.models) +
           L", lines: " + std::to_wstring(result.lines) + L'\n';
}

std::wstring AsText(const std::vector<Finding>& findings, const CheckResult& result) {
    std::wstring text;
    for (const Finding& finding : findings) text += Printable(ReportLineOf(finding)) + L'\n';
    if (!findings.empty()) text += L'\n';
    for (const CheckRule rule : RulesOf(findings)) {
        const RuleFacts& facts = FactsOf(rule);
        text += std::wstring(facts.title) + L": " + facts.meaning + L' ' + facts.remedy + L'\n';
    }
    if (!findings.empty()) text += L'\n';
    return text + CountText(result);
}

std::wstring AsJson(const Finding& finding) {
    const RuleFacts& facts = FactsOf(finding.rule);
    std::wstring text = L"    {\"line\": " + std::to_wstring(finding.line) + L", \"severity\": " +
                        JsonText(SeverityKey(SeverityOf(finding))) + L", \"model\": ";
    text += finding.isInModel ? L"{\"number\": " + std::to_wstring(finding.number) +
                                    L", \"name\": " + JsonText(finding.name) + L", \"kind\": " +
                                    JsonText(KindName(finding.kind)) + L"}"
                              : L"null";
    return text + L", \"rule\": " + JsonText(facts.title) + L", \"text\": " +
           JsonText(TextOf(finding)) + L", \"meaning\": " + JsonText(facts.meaning) +
           L", \"remedy\": " + JsonText(facts.remedy) + L"}";
}

std::wstring AsJson(const std::vector<Finding>& findings, const CheckResult& result) {
    std::wstring text = L"{\n  \"models\": " + std::to_wstring(result.models) +
                        L",\n  \"lines\": " + std::to_wstring(result.lines) +
                        L",\n  \"findings\": [";
    for (const Finding& finding : findings) {
        text += (&finding == &findings.front() ? L"\n" : L",\n") + AsJson(finding);
    }
    return text + (findings.empty() ? L"]\n}\n" : L"\n  ]\n}\n");
}

}  // namespace

ExitCode RunCheck(const Request& request) {
    const std::wstring& operand = request.operands[0];
    if (IsLegacyDatabase(operand)) {
        return ComplainOfUsage(request, L"a DOS database is not checked");
    }
    std::wstring path;
    std::vector<Finding> findings;
    CheckResult result;
    if (!RequirePath(operand, path) ||
        !CheckDatabase(
            path, [&](const Finding& finding) { findings.push_back(finding); }, result)) {
        return kExitFailed;
    }
    const bool isJson = request.Value(Option::kFormat) == L"json";
    Print(isJson ? AsJson(findings, result) : AsText(findings, result));
    return findings.empty() ? kExitDone : kExitFindings;
}

}  // namespace corvane
