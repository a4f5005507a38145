#include "tools/model_choice.h"

#include <algorithm>

#include "legacy/exchange.h"
#include "report/messages.h"
#include "text/numbers.h"
#include "text/text.h"
#include "tools/console.h"

namespace corvane {
namespace {

using Models = std::vector<ModelEntry>;

// Up to nine digits.
bool IsNumber(const std::wstring& text) {
    constexpr size_t kMostDigits = 9;
    return !text.empty() && text.size() <= kMostDigits &&
           text.find_first_not_of(L"0123456789") == std::wstring::npos;
}

std::vector<size_t> WithNumber(const Models& models, int32_t number) {
    std::vector<size_t> found;
    for (size_t i = 0; i < models.size(); ++i) {
        if (models[i].number == number) found.push_back(i);
    }
    return found;
}

std::vector<size_t> WithName(const Models& models, const std::wstring& name) {
    std::vector<size_t> found;
    for (size_t i = 0; i < models.size(); ++i) {
        if (models[i].name == name) found.push_back(i);
    }
    return found;
}

// The models that an operand could mean.
std::vector<size_t> FindModels(const Models& models, const std::wstring& operand) {
    std::vector<size_t> found;
    if (IsNumber(operand)) found = WithNumber(models, LeadingInteger(operand));
    return found.empty() ? WithName(models, Trim(operand)) : found;
}

std::wstring NumbersOf(const Models& models, const std::vector<size_t>& indexes) {
    constexpr size_t kMostShown = 10;
    std::wstring numbers;
    for (size_t i = 0; i < std::min(indexes.size(), kMostShown); ++i) {
        numbers += (i == 0 ? L"" : L", ") + GeneralText(models[indexes[i]].number);
    }
    return indexes.size() > kMostShown ? numbers + L" ..." : numbers;
}

bool RequireOwnNumber(const std::wstring& path, const ModelEntry& model) {
    if (!model.hasOwnNumber) {
        Complain(L"the number " + GeneralText(model.number) + L" in '" + path +
                 L"' does not lead to one model alone; 'corvane renumber' gives each its own");
    }
    return model.hasOwnNumber;
}

bool RequireModel(const std::wstring& path, const Models& models, const std::wstring& operand,
                  size_t& index) {
    const std::vector<size_t> found = FindModels(models, operand);
    if (found.empty()) {
        Complain(L"no model '" + operand + L"' in '" + path +
                 L"'; 'corvane list' shows its models");
        return false;
    }
    const ModelEntry& model = models[found.front()];
    if (found.size() > 1 && models[found[0]].number != models[found[1]].number) {
        Complain(L"several models in '" + path + L"' have the name '" + operand +
                 L"': give the number of one of them: " + NumbersOf(models, found));
        return false;
    }
    index = found.front();
    return RequireOwnNumber(path, model);
}

}  // namespace

bool RequireModels(const std::wstring& path, const Models& models,
                   std::span<const std::wstring> operands, Models& chosen) {
    std::vector<bool> isChosen(models.size());
    for (const std::wstring& operand : operands) {
        size_t index = 0;
        if (!RequireModel(path, models, operand, index)) return false;
        isChosen[index] = true;
    }
    for (size_t i = 0; i < models.size(); ++i) {
        if (isChosen[i]) chosen.push_back(models[i]);
    }
    return true;
}

bool RequireLegacySections(const std::wstring& path, std::vector<ModelEntry>& sections) {
    int16_t status = 0;
    LegacySections all = ListAllLegacySections(path, status);
    if (!RequireLegacyRead(path, status)) return false;
    sections = std::move(all.sections);
    for (ModelEntry& section : sections) section.hasOwnNumber = true;
    const auto count = static_cast<int32_t>(sections.size());
    if (all.hasMore) Complain(FormatMessage(kMsgMoreSections, {path, count}));
    return true;
}

bool RequireAllModels(const std::wstring& path, const Models& models) {
    return std::ranges::all_of(
        models, [&path](const ModelEntry& model) { return RequireOwnNumber(path, model); });
}

}  // namespace corvane
