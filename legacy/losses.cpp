#include "legacy/losses.h"

#include "report/reporters.h"

namespace corvane {
namespace {

// More lines do not fit on a small screen.
constexpr size_t kMostLines = 24;

std::vector<std::wstring> LinesOf(const ExchangeLosses& all) {
    std::vector<std::wstring> lines = all.whole;
    const auto count = static_cast<int32_t>(all.sections.size());
    if (count > 1) lines.push_back(FormatMessage(kMsgSectionsWithLosses, {count}));
    for (const ExchangeLosses::Entry& entry : all.sections) {
        lines.push_back(FormatMessage(kMsgLossesOfSection, {entry.section}));
        lines.insert(lines.end(), entry.losses.begin(), entry.losses.end());
    }
    return lines;
}

}  // namespace

void NoteLoss(Losses& losses, int32_t message, MessageArguments arguments) {
    losses.push_back(FormatMessage(message, arguments));
}

void AddLosses(ExchangeLosses& all, const std::wstring& section, Losses losses) {
    if (!losses.empty()) all.sections.push_back({section, std::move(losses)});
}

void ReportLosses(const std::wstring& path, const ExchangeLosses& all) {
    const std::vector<std::wstring> lines = LinesOf(all);
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
