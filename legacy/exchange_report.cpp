#include "legacy/exchange_report.h"

#include <algorithm>
#include <initializer_list>
#include <utility>

#include "report/reporters.h"

namespace corvane {
namespace {

struct KindWords {
    ModelKind kind;
    int32_t one, several;  // messages
};
constexpr KindWords kKindWords[] = {{ModelKind::kSection, kMsgASection, kMsgSections},
                                    {ModelKind::kBulkhead, kMsgAnArrangement, kMsgArrangements},
                                    {ModelKind::kTorsion, kMsgATorsionModel, kMsgTorsionModels}};

using Outcomes = std::initializer_list<Outcome>;

bool IsOneOf(Outcomes outcomes, Outcome outcome) {
    return std::ranges::find(outcomes, outcome) != outcomes.end();
}

std::wstring ModelsText(const ExchangeReport& report, Outcomes outcomes) {
    std::wstring text;
    for (const KindWords& words : kKindWords) {
        const auto isOne = [&](const ExchangedModel& model) {
            return model.kind == words.kind && IsOneOf(outcomes, model.outcome);
        };
        const auto count = static_cast<int32_t>(std::ranges::count_if(report.models, isOne));
        if (count == 0) continue;
        const std::wstring models =
            count == 1 ? GetMessage(words.one) : FormatMessage(words.several, {count});
        text = text.empty() ? models : FormatMessage(kMsgThisAndThat, {text, models});
    }
    return text;
}

// "; " and the models of an outcome with what became of them.
std::wstring Rest(const ExchangeReport& report, Outcome outcome, int32_t one, int32_t several) {
    const int32_t count = CountOf(report, outcome);
    if (count == 0) return {};
    return L"; " + FormatMessage(count == 1 ? one : several, {ModelsText(report, {outcome})});
}

void AddLines(std::vector<ExchangeLine>& lines, const ExchangeLine& line, const Losses& what) {
    for (const std::wstring& text : what) {
        lines.push_back(line);
        lines.back().what = text;
    }
    if (what.empty()) lines.push_back(line);
}

// More lines do not fit on a small screen.
constexpr size_t kMostLines = 24;

void AddLosses(Losses& lines, const std::wstring& name, const Losses& losses) {
    if (losses.empty()) return;
    lines.push_back(FormatMessage(kMsgLossesOfSection, {name}));
    lines.insert(lines.end(), losses.begin(), losses.end());
}

// What did not go over as it was, for a box: first what did not go over at all.
Losses LossLines(const ExchangeReport& report) {
    Losses lines = report.whole;
    for (const ExchangedModel& model : report.models) {
        if (model.outcome != Outcome::kLeftOut) continue;
        lines.push_back(FormatMessage(kMsgModelLeftOut, {model.name, model.what.front()}));
    }
    AddLosses(lines, GetMessage(kMsgBasicShipData), report.ship);
    const int32_t changed = CountOf(report, Outcome::kChanged);
    if (changed > 1) lines.push_back(FormatMessage(kMsgSectionsWithLosses, {changed}));
    for (const ExchangedModel& model : report.models) {
        if (model.outcome == Outcome::kChanged) AddLosses(lines, model.name, model.what);
    }
    return lines;
}

}  // namespace

void NoteLoss(Losses& losses, int32_t message, MessageArguments arguments) {
    losses.push_back(FormatMessage(message, arguments));
}

void AddSection(ExchangeReport& report, const std::wstring& name, Losses losses) {
    const Outcome outcome = losses.empty() ? Outcome::kWentOver : Outcome::kChanged;
    report.models.push_back({name, ModelKind::kSection, outcome, std::move(losses)});
}

void AddLeftOut(ExchangeReport& report, ModelKind kind, const std::wstring& name, int32_t message,
                MessageArguments arguments) {
    report.models.push_back({name, kind, Outcome::kLeftOut, {FormatMessage(message, arguments)}});
}

int32_t CountOf(const ExchangeReport& report, Outcome outcome) {
    return static_cast<int32_t>(
        std::ranges::count(report.models, outcome, &ExchangedModel::outcome));
}

bool IsUnchanged(const ExchangeReport& report) {
    const auto count = static_cast<int32_t>(report.models.size());
    return report.whole.empty() && report.ship.empty() &&
           CountOf(report, Outcome::kWentOver) == count;
}

int32_t CountArrived(const ExchangeReport& report) {
    return static_cast<int32_t>(report.models.size()) - CountOf(report, Outcome::kLeftOut);
}

std::wstring ArrivedText(const ExchangeReport& report) {
    return ModelsText(report, {Outcome::kWentOver, Outcome::kChanged});
}

std::wstring RestText(const ExchangeReport& report) {
    return Rest(report, Outcome::kChanged, kMsgOneWasChanged, kMsgSomeWereChanged) +
           Rest(report, Outcome::kLeftOut, kMsgOneWasLeftOut, kMsgSomeWereLeftOut);
}

std::vector<ExchangeLine> LinesOf(const ExchangeReport& report) {
    std::vector<ExchangeLine> lines;
    for (const std::wstring& text : report.whole) {
        lines.push_back({{}, {}, Outcome::kLeftOut, text});
    }
    if (report.hasShip) {
        const Outcome outcome = report.ship.empty() ? Outcome::kWentOver : Outcome::kChanged;
        AddLines(lines, {GetMessage(kMsgBasicShipData), {}, outcome, {}}, report.ship);
    }
    for (const ExchangedModel& model : report.models) {
        AddLines(lines, {model.name, KindName(model.kind), model.outcome, {}}, model.what);
    }
    return lines;
}

std::wstring OutcomeText(Outcome outcome) {
    switch (outcome) {
        case Outcome::kChanged:
            return GetMessage(kMsgChangedOnTheWay);
        case Outcome::kLeftOut:
            return GetMessage(kMsgLeftOut);
        default:
            return GetMessage(kMsgWentOver);
    }
}

void ReportLosses(const std::wstring& path, const ExchangeReport& report) {
    const Losses lines = LossLines(report);
    if (lines.empty()) return;
    const size_t shown = lines.size() > kMostLines ? kMostLines - 1 : lines.size();
    std::wstring text;
    for (size_t i = 0; i < shown; ++i) text += L'\r' + lines[i];
    if (shown < lines.size()) {
        const auto more = static_cast<int32_t>(lines.size() - shown);
        text += L'\r' + FormatMessage(kMsgMoreLosses, {more});
    }
    ReportMessage(kMsgNotAllExchanged, {path, text});
}

}  // namespace corvane
