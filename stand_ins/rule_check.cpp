// The rule programs: they show the model, and check nothing.
#include "database/section_block.h"
#include "stand_ins/stand_ins.h"
#include "text/numbers.h"

namespace corvane::stand_ins {
namespace {

constexpr wchar_t kNote[] =
    L"This stand-in checks nothing: no rule was applied, and nothing here means that the model "
    L"is right. It shows which model it was asked to check.";

// Position, dimensions and number of parts of a section or a bulkhead arrangement.
bool ShowModel(Form& form) {
    SectionModel model;
    const int32_t number = form.request.model;
    if (!ReadSectionBlock(form.request.databasePath, number, true, model)) return false;
    const bool isSection = form.modelKind == ModelKind::kSection;
    form.facts.push_back({L"Position", GeneralText(model.x_m) + L" m"});
    if (isSection) {
        form.facts.push_back({L"Breadth, depth", GeneralText(model.breadth_m) + L" m, " +
                                                     GeneralText(model.depth_m) + L" m"});
    }
    form.facts.push_back(
        {isSection ? L"Panels" : L"Bulkheads", std::to_wstring(model.panels.size())});
    form.facts.push_back(
        {isSection ? L"Compartments" : L"Holds", std::to_wstring(model.compartments.size())});
    return true;
}

constexpr StandIn RuleProgram(const wchar_t* title, ModelKind kind) {
    return {title, kNote, ModelUse::kRequired, kind, ShowModel, nullptr};
}

}  // namespace

const StandIn kSectionRule = RuleProgram(L"Section rules (stand-in)", ModelKind::kSection);
const StandIn kCsrRule = RuleProgram(L"Section rules CSR (stand-in)", ModelKind::kSection);
const StandIn kBulkheadRule = RuleProgram(L"Bulkhead rules (stand-in)", ModelKind::kBulkhead);

}  // namespace corvane::stand_ins
