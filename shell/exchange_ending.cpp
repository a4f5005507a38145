#include "shell/exchange_ending.h"

#include <optional>

#include "files/paths.h"
#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/report.h"
#include "shell/state.h"

namespace corvane {
namespace {

// The longest texts that are usual, in the order of the columns; the last one takes what is left.
constexpr const wchar_t* kSamples[] = {L"Engine room bulkhead, frame 46", L"Bulkhead", L"Went over",
                                       L""};

std::optional<Severity> SeverityOf(Outcome outcome) {
    switch (outcome) {
        case Outcome::kChanged:
            return Severity::kWarning;
        case Outcome::kLeftOut:
            return Severity::kFault;
        default:
            return std::nullopt;
    }
}

bool IsExport(uint16_t command) {
    return command == ME_SectionExport || command == ME_FileSaveLegacy;
}

Report ReportOf(const ExchangeReport& exchange, const ExchangeEnding& ending) {
    const std::wstring name = FileNameOf(ending.path);
    Report report;
    report.command = ending.command;
    report.title = FormatMessage(IsExport(ending.command) ? kMsgExportTo : kMsgImportFrom, {name});
    report.summary = FormatMessage(kMsgAllDone, {ending.line + RestText(exchange)});
    report.fileName = StripExtension(name);
    for (const wchar_t* sample : kSamples) {
        const std::wstring title = GetMessagePart(kMsgExchangeColumns, report.columns.size());
        report.columns.push_back({title, sample});
    }
    for (const ExchangeLine& line : LinesOf(exchange)) {
        const std::wstring outcome = OutcomeText(line.outcome);
        report.rows.push_back(
            {{line.model, line.kind, outcome, line.what}, line.what, SeverityOf(line.outcome)});
    }
    return report;
}

}  // namespace

void ShowExchange(const ExchangeReport& exchange, const ExchangeEnding& ending) {
    if (!ending.isQuiet) ShowNote(ending.line + RestText(exchange));
    if (IsUnchanged(exchange)) return;
    ResetMousePointer();
    Report report = ReportOf(exchange, ending);
    shell.view.showReport(report);
}

void ShowImported(const ExchangeReport& exchange, uint16_t command, const std::wstring& source) {
    const int32_t message = CountArrived(exchange) == 1 ? kMsgOneWasImported : kMsgSomeWereImported;
    ShowExchange(exchange,
                 {command, source, FormatMessage(message, {ArrivedText(exchange), source}),
                  !IsBsdDefined(shell.database.bsd)});
}

}  // namespace corvane
