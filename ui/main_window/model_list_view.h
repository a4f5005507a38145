// LI_Sections, the list of models. It holds no texts: it asks for those of the lines that it shows.
#pragma once

#include <vector>

#include "shell/list_order.h"
#include "ui/base/controls.h"

namespace corvane {

// An empty list; its icons come with ScaleModelList.
HWND CreateModelList(HWND parent);

// Takes icons and column widths of a resolution, after the list has got its font. The list owns
// the icons then.
void ScaleModelList(HWND list, UINT dpi);

// So many lines, none of them selected, in this order.
void SetLineCount(HWND list, int count, const ListOrder& order);
// What the list asks of a line (LVN_GETDISPINFO).
void FillInLine(LVITEMW& item);

// Grey rows are of a database that cannot be reached now.
void GreyModelRows(HWND list, bool grey);

// -1: none.
void SelectListLine(HWND list, int line);
// Of several ones that with the focus, if it is one of them, else the topmost.
int SelectedListLine(HWND list);
std::vector<int> SelectedListLines(HWND list);
int SelectedLineCount(HWND list);
void SelectAllListLines(HWND list);

// A column's width now [pixels at 96 dots per inch].
int ColumnWidth(HWND list, int column);
// Gives the column of names what the other columns leave of the list's width, as long as the user
// has not sized it.
void FitNameColumn(HWND list);

}  // namespace corvane
