#include "shell/exchange_ending.h"

#include "report/reporters.h"

namespace corvane {

void ShowExchange(const ExchangeReport& report, const ExchangeEnding& ending) {
    ReportLosses(ending.path, report);
    ShowNote(ending.line + RestText(report));
}

void ShowImported(const ExchangeReport& report, uint16_t command, const std::wstring& path) {
    const int32_t message = CountArrived(report) == 1 ? kMsgOneWasImported : kMsgSomeWereImported;
    ShowExchange(report, {command, path, FormatMessage(message, {ArrivedText(report), path})});
}

}  // namespace corvane
