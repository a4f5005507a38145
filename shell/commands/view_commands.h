// The commands of the View menu: the order of the list. The current model stays selected.
#pragma once

#include "shell/list_order.h"

namespace corvane {

// Shows the list in another order.
void SortList(const ListOrder& order);

// By a column, up or down as before.
void SortByColumn(ListColumn column);
bool IsSortedBy(ListColumn column);

void ME_ViewFileOrder_Click();
bool IsInFileOrder();

// Up instead of down, or down instead of up.
void ME_ViewDescending_Click();
bool IsDescending();

}  // namespace corvane
