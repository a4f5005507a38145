// The end of an exchange with another database: one line in the status bar, and where not all went
// over as it was, a report of every model.
#pragma once

#include <cstdint>
#include <string>

#include "legacy/exchange_report.h"

namespace corvane {

struct ExchangeEnding {
    uint16_t command = 0;  // the menu item that it was
    std::wstring path;     // of the other database
    std::wstring line;     // what ended well, for the status bar
    bool isQuiet = false;  // the status bar says what to do next, and stays
};
void ShowExchange(const ExchangeReport& exchange, const ExchangeEnding& ending);
// The same of an import into the open database: the line counts the models. `source` is a path, or
// what else the user calls it.
void ShowImported(const ExchangeReport& exchange, uint16_t command, const std::wstring& source);

}  // namespace corvane
