// What the check of a database found (database/check.h), as the rows of a report.
#pragma once

#include <vector>

#include "database/check.h"
#include "shell/report.h"

namespace corvane {

// A report with the columns and a row for each finding, in their order; the other fields are up to
// the caller. A row's details say what is wrong, what it means, and what can be done.
Report ReportOfFindings(const std::vector<Finding>& findings);

}  // namespace corvane
