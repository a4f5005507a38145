// The commands of the View menu, and what else shows the list in another way: its order and its
// filter. The current model stays selected, as long as a line shows it.
#pragma once

#include <string>

#include "preview/annotations.h"
#include "shell/list_order.h"

namespace corvane {

// Shows the list in another order.
void SortList(const ListOrder& order);

// By a column, up or down as before.
void SortByColumn(ListColumn column);
bool IsSortedBy(ListColumn column);

// By the column to the right or to the left of the one that the list is sorted by, up or down as
// before; beyond the last one, and before the first one, it is the order of the file.
void SortByNeighbour(bool isNext);
// From the largest down, or from the smallest up.
void SortDescending(bool isDescending);

void ME_ViewFileOrder_Click();
bool IsInFileOrder();

// Shows the models that a filter leaves (shell/list_filter.h).
void FilterList(const std::wstring& text);
void ME_EditFind_Click();
void ME_EditSelectAll_Click();

// Reads the open database's file again.
void ME_ViewRefresh_Click();

// Up instead of down, or down instead of up.
void ME_ViewDescending_Click();
bool IsDescending();

// The preview in the whole window, without list and buttons, or beside the list again.
void ShowLargerPreview(bool isLarge);
void ME_ViewLarger_Click();
bool IsPreviewLarger();

// Switches something of the picture on or off.
void TurnPictureOption(bool PictureOptions::* option);

}  // namespace corvane
