// List views of rows of any length: the dialog fills in those that are in view
// (DialogKind::fillIn). The user can select several rows.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "shell/report.h"
#include "ui/dialogs/dialogs.h"

namespace corvane {

// Adds a list with these columns, without rows yet.
HWND AddRowList(HWND window, int id, const std::wstring& name,
                const std::vector<ReportColumn>& columns);

// So many rows, painted again; this one is selected, has the focus, and is in view. Beyond the last
// one it is that.
void SetRows(HWND list, size_t count, size_t selected);
void EnsureRowVisible(HWND list, size_t row);

std::vector<size_t> SelectedRows(HWND list);
// The row that has the focus, or, where that is not selected, the first one that is; else -1.
int ShownRow(HWND list);
void SelectAllRows(HWND list);
// What is selected may have changed.
bool IsSelectionNotification(int code);

// The width of a column for its title and its usual texts.
int WidthOfColumn(HWND list, const ReportColumn& column, UINT dpi);
// Each column has that.
void FitColumns(HWND list, const std::vector<ReportColumn>& columns, UINT dpi);
// This one has what the others leave, but not less.
void WidenColumn(HWND list, const std::vector<ReportColumn>& columns, size_t wide, UINT dpi);

}  // namespace corvane
