// LI_Sections, the list of models.
#pragma once

#include <vector>

#include "ui/commands/main_window.h"
#include "ui/windows/controls.h"

namespace corvane {

// An empty list; its font and icons come with ScaleModelList.
HWND CreateModelList(HWND parent);

// Takes font and icons of a resolution. The list owns the icons then.
void ScaleModelList(HWND list, HFONT font, UINT dpi);

void SetModelRows(HWND list, const std::vector<ModelRow>& rows);

// -1: none.
void SelectModelRow(HWND list, int index);
int SelectedModelRow(HWND list);

// Gives the column of names what the other columns leave of the list's width.
void FitNameColumn(HWND list);

}  // namespace corvane
