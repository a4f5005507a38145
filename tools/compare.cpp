// The command that compares two databases.
#include "shell/comparison.h"
#include "shell/exchange_boxes.h"
#include "text/numbers.h"
#include "text/text.h"
#include "tools/console.h"
#include "tools/formats.h"
#include "tools/tool_commands.h"

namespace corvane {
namespace {

// A model that differs, and in which values.
struct ChangedModel {
    const ComparedModel& model;
    std::vector<Difference> differences;
};

// False, and reported, when a model can no longer be read.
bool ReadChanged(const Comparison& comparison, std::vector<ChangedModel>& changed) {
    for (const ComparedModel& model : comparison.models) {
        if (!model.HasDifference()) continue;
        ChangedModel& added = changed.emplace_back(ChangedModel{model, {}});
        if (!DifferencesOf(comparison, model, added.differences)) return false;
    }
    return true;
}

std::wstring LinesOf(const std::vector<Difference>& differences) {
    std::wstring text;
    for (const Difference& difference : differences) {
        text += L"    " + Printable(difference.where + L", " + TextOf(difference)) + L'\n';
    }
    return text;
}

std::wstring AsText(const Comparison& comparison, const std::vector<ChangedModel>& changed) {
    std::wstring text;
    if (!comparison.ship.empty()) text += L"Basic Ship Data: changed\n";
    for (const Difference& difference : comparison.ship) {
        text += L"    " + Printable(TextOf(difference)) + L'\n';
    }
    for (const auto& [model, differences] : changed) {
        const ModelEntry& entry = AnyOf(model);
        text += L"Model " + std::to_wstring(entry.number) + L" '" + Printable(entry.name) + L"' (" +
                KindName(entry.kind) + L"): " + WithSmallLetter(ChangeText(model)) + L'\n' +
                LinesOf(differences);
    }
    return text + (text.empty() ? L"" : L"\n") + SummaryOf(comparison) + L'\n';
}

// ---- JSON --------------------------------------------------------------------------------------

std::wstring AsJson(const std::vector<Difference>& differences, const std::wstring& indent) {
    std::wstring text = L"[";
    for (const Difference& each : differences) {
        text += (&each == &differences.front() ? L"\n" : L",\n") + indent + L"  {\"where\": " +
                JsonText(each.where) + L", \"value\": " + JsonText(each.field) + L", \"before\": " +
                JsonText(each.before) + L", \"now\": " + JsonText(each.now) + L"}";
    }
    return text + (differences.empty() ? L"]" : L"\n" + indent + L"]");
}

std::wstring NumberAndName(const std::optional<ModelEntry>& model) {
    if (!model) return L"null";
    return L"{\"number\": " + GeneralText(model->number) + L", \"name\": " + JsonText(model->name) +
           L"}";
}

std::wstring AsJson(const Comparison& comparison, const std::vector<ChangedModel>& changed) {
    std::wstring text = L"{\n  \"ship\": " + AsJson(comparison.ship, L"  ") + L",\n  \"same\": " +
                        std::to_wstring(CountsOf(comparison).same) + L",\n  \"models\": [";
    for (const ChangedModel& each : changed) {
        const auto& [model, differences] = each;
        text += (&each == &changed.front() ? L"\n" : L",\n");
        text += L"    {\"before\": " + NumberAndName(model.before) + L", \"now\": " +
                NumberAndName(model.now) + L", \"kind\": " + JsonText(KindName(AnyOf(model).kind)) +
                L", \"change\": " + JsonText(WithSmallLetter(ChangeText(model))) +
                L", \"differences\": " + AsJson(differences, L"    ") + L"}";
    }
    return text + (changed.empty() ? L"]\n}\n" : L"\n  ]\n}\n");
}

}  // namespace

ExitCode RunCompare(const Request& request) {
    for (const std::wstring& operand : request.operands) {
        if (IsLegacyDatabase(operand)) {
            return ComplainOfUsage(request, L"a DOS database is not compared; convert it first");
        }
    }
    Comparison comparison;
    std::vector<ChangedModel> changed;
    if (!RequirePath(request.operands[0], comparison.before) ||
        !RequirePath(request.operands[1], comparison.now) || !CompareFiles(comparison) ||
        !ReadChanged(comparison, changed)) {
        return kExitFailed;
    }
    const bool isJson = request.Value(Option::kFormat) == L"json";
    Print(isJson ? AsJson(comparison, changed) : AsText(comparison, changed));
    return AreSame(comparison) ? kExitDone : kExitFindings;
}

}  // namespace corvane
