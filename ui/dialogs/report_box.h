// The box of a report: its rows in a list of any length, what the selected row has besides, and
// buttons that copy and save it. The user can size it.
#pragma once

#include "shell/report.h"

namespace corvane {

// True when the report's own button closed the box. `report.selected` is the row that was selected
// last.
bool ShowReport(Report& report);

}  // namespace corvane
