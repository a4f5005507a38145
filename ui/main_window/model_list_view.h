// LI_Sections, the list of models.
#pragma once

#include <vector>

#include "shell/model_list.h"
#include "ui/base/controls.h"

namespace corvane {

// An empty list; its icons come with ScaleModelList.
HWND CreateModelList(HWND parent);

// Takes icons and column widths of a resolution, after the list has got its font. The list owns
// the icons then.
void ScaleModelList(HWND list, UINT dpi);

void SetModelRows(HWND list, const std::vector<ModelRow>& rows);

// -1: none.
void SelectModelRow(HWND list, int index);
int SelectedModelRow(HWND list);

// Gives the column of names what the other columns leave of the list's width.
void FitNameColumn(HWND list);

}  // namespace corvane
