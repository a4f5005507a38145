// Writes the sample ship as a legacy database, by the shell's own export.
//
//     make_legacy_sample <model database> <legacy database>
#include <cstdio>

#include "legacy/exchange.h"
#include "platform/system.h"

int main(int count, char** arguments) {
    if (count != 3) {
        std::fputs("make_legacy_sample <model database> <legacy database>\n", stderr);
        return 2;
    }
    const auto path = [&](int i) { return corvane::system::WideFromAnsi(arguments[i]); };
    corvane::ExchangeReport report;
    if (corvane::ExportDatabase({path(1), path(2)}, report)) return 0;
    std::fputs("The legacy database was not made.\n", stderr);
    return 1;
}
