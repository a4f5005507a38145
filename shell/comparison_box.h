// What the box of a comparison shows, decided without a window: the list of what differs, the
// values that differ in the selected row's model, and its picture.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "shell/comparison.h"
#include "shell/comparison_picture.h"
#include "shell/report.h"

namespace corvane {

struct ComparisonBox {
    Comparison& comparison;
    // The rows of the list: indexes of the comparison's models, those without a difference left
    // out; kShipRow comes first where the ship records differ.
    std::vector<size_t> rows = {};
    // Of the row that is shown:
    std::vector<Difference> values = {};
    ComparisonPicture picture = {};
};
inline constexpr size_t kShipRow = static_cast<size_t>(-1);

// Lists what differs; no row is shown.
void ListDifferences(ComparisonBox& box);
// Shows a row; beyond the last one: none. What cannot be read is reported. Where a file is no
// longer as it was compared, nothing but the reason is shown.
void ShowRow(ComparisonBox& box, size_t row);

// Columns of both lists, and the cells of a row.
const std::vector<ReportColumn>& DifferingColumns();
std::vector<std::wstring> DifferingCells(const ComparisonBox& box, size_t row);
const std::vector<ReportColumn>& ValueColumns();
std::vector<std::wstring> ValueCells(const ComparisonBox& box, size_t row);

// Copies rows of either list.
void CopyDiffering(const ComparisonBox& box, const std::vector<size_t>& rows);
void CopyValues(const ComparisonBox& box, const std::vector<size_t>& rows);
// Copies, or saves as text, the whole comparison. What fails is reported.
void CopyComparison(const Comparison& comparison);
void SaveComparison(const Comparison& comparison);

// Whether some of these rows have a model that the other database has, and the open one may be
// changed.
bool MayImport(const ComparisonBox& box, const std::vector<size_t>& rows);
// Imports these models into the open database, after a question, and compares and lists again. True
// when the list is a new one. What prevents it is reported before the question.
bool ImportRows(ComparisonBox& box, const std::vector<size_t>& rows);

}  // namespace corvane
