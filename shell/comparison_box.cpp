#include "shell/comparison_box.h"

#include <algorithm>
#include <utility>

#include "report/reporters.h"
#include "shell/commands/commands.h"
#include "shell/database_comparison.h"
#include "shell/model_list.h"
#include "shell/state.h"

namespace corvane {
namespace {

using Cells = std::vector<std::wstring>;

// The model of a row; null of the ship record's.
const ComparedModel* ModelOf(const ComparisonBox& box, size_t row) {
    const size_t index = box.rows.at(row);
    return index == kShipRow ? nullptr : &box.comparison.models.at(index);
}

// The models of rows, as the other database has them.
std::vector<ModelEntry> ModelsOfBefore(const ComparisonBox& box, const std::vector<size_t>& rows) {
    std::vector<ModelEntry> models;
    for (const size_t row : rows) {
        const ComparedModel* model = ModelOf(box, row);
        if (model != nullptr && model->before) models.push_back(*model->before);
    }
    return models;
}

// ---- Reports -----------------------------------------------------------------------------------

using CellsOfRow = Cells (*)(const ComparisonBox& box, size_t row);

// Rows of a list as a report.
Report ReportOf(const ComparisonBox& box, const std::vector<ReportColumn>& columns,
                CellsOfRow cells, const std::vector<size_t>& rows) {
    Report report;
    report.title = FormatMessage(kMsgComparisonWith, {box.comparison.beforeName});
    report.summary = SummaryOf(box.comparison);
    report.columns = columns;
    for (const size_t row : rows) report.rows.push_back({cells(box, row), L""});
    return report;
}

// False when a model could not be read, which is reported.
bool WholeReport(const Comparison& comparison, Report& report) {
    SetBusyPointer();
    const bool isDone = ReportOf(comparison, report);
    ResetMousePointer();
    report.command = ME_FileCompare;
    return isDone;
}

}  // namespace

void ListDifferences(ComparisonBox& box) {
    const std::vector<ComparedModel>& models = box.comparison.models;
    box.rows.clear();
    if (!box.comparison.ship.empty()) box.rows.push_back(kShipRow);
    for (size_t i = 0; i < models.size(); ++i) {
        if (models[i].HasDifference()) box.rows.push_back(i);
    }
    ShowRow(box, box.rows.size());
}

void ShowRow(ComparisonBox& box, size_t row) {
    box.values.clear();
    EmptyPicture(box.picture);
    if (row >= box.rows.size()) return;
    const std::wstring why = WhyOutdated(box.comparison);
    if (!why.empty()) return EmptyPicture(box.picture, why);
    const ComparedModel* model = ModelOf(box, row);
    if (model == nullptr) {
        box.values = box.comparison.ship;
        return EmptyPicture(box.picture, GetMessage(kMsgShipHasNoPicture));
    }
    SetBusyPointer();
    if (DifferencesOf(box.comparison, *model, box.values)) {
        ShowCompared(box.picture, box.comparison, *model);
    }
    ResetMousePointer();
}

const std::vector<ReportColumn>& DifferingColumns() {
    static const std::vector<ReportColumn> columns = {{L"Change", L"Renamed, changed"},
                                                      {L"Id", L"0000", true},
                                                      {L"Model", L"Engine room, frame 30"},
                                                      {L"Type", L"Bulkhead"},
                                                      {L"X", L"0000.000", true}};
    return columns;
}

Cells DifferingCells(const ComparisonBox& box, size_t row) {
    const ComparedModel* model = ModelOf(box, row);
    if (model == nullptr) return {L"Changed", L"", box.comparison.ship.front().where, L"", L""};
    const ModelRow shown = RowOf(AnyOf(*model));
    return {ChangeText(*model), shown.id, shown.name, shown.type, shown.x};
}

const std::vector<ReportColumn>& ValueColumns() {
    static const std::vector<ReportColumn> columns = {{L"Where", L"Panel 12 'Bottom', node 3"},
                                                      {L"Value", L"Thickness [mm]"},
                                                      {L"Before", L"1234.567 m"},
                                                      {L"Now", L"1234.567 m"}};
    return columns;
}

Cells ValueCells(const ComparisonBox& box, size_t row) {
    const Difference& value = box.values.at(row);
    return {value.where, value.field, value.before, value.now};
}

void CopyDiffering(const ComparisonBox& box, const std::vector<size_t>& rows) {
    if (!rows.empty()) CopyReport(ReportOf(box, DifferingColumns(), DifferingCells, rows), {});
}

void CopyValues(const ComparisonBox& box, const std::vector<size_t>& rows) {
    if (!rows.empty()) CopyReport(ReportOf(box, ValueColumns(), ValueCells, rows), {});
}

void CopyComparison(const Comparison& comparison) {
    Report report;
    if (WholeReport(comparison, report)) CopyReport(report, {});
}

void SaveComparison(const Comparison& comparison) {
    Report report;
    if (WholeReport(comparison, report)) SaveReport(report);
}

bool MayImport(const ComparisonBox& box, const std::vector<size_t>& rows) {
    return !shell.database.isReadOnly && !ModelsOfBefore(box, rows).empty();
}

bool ImportRows(ComparisonBox& box, const std::vector<size_t>& rows) {
    if (!ImportFromCompared(box.comparison, ModelsOfBefore(box, rows))) return false;
    ListDifferences(box);
    return true;
}

}  // namespace corvane
