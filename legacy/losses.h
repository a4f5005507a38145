// What an exchange with a legacy database left out, cut or changed. It is gathered while sections
// are converted, and reported once, section by section, at the end of the exchange.
#pragma once

#include <string>
#include <vector>

#include "report/messages.h"

namespace corvane {

// Of one section: texts of messages, in the order in which the losses were met.
using Losses = std::vector<std::wstring>;

// Adds the text of a message; nothing is shown yet.
void NoteLoss(Losses& losses, int32_t message, MessageArguments arguments);

// Of one exchange.
struct ExchangeLosses {
    Losses whole;  // what concerns no single section, and sections that are not there at all
    struct Entry {
        std::wstring section;  // its name
        Losses losses;
    };
    std::vector<Entry> sections;  // in the order of the exchange; only those that lost something
};

// Adds a section's losses, if there are any.
void AddLosses(ExchangeLosses& all, const std::wstring& section, Losses losses);

// One box with all of them (message 3592), at most 24 lines, the last of which counts what is left
// out: first what concerns no single section, then how many sections lost something, if more than
// one did, and what. `path` is the other database. Nothing is shown when nothing was lost.
void ReportLosses(const std::wstring& path, const ExchangeLosses& all);

}  // namespace corvane
