// LI_Sections of the exchange boxes: the sections or models of the chosen file.
#pragma once

#include <string>
#include <vector>

#include "platform/win32/win32.h"
#include "shell/exchange_boxes.h"

namespace corvane {

// Fills the list with what a file holds, and enables it. Where there is nothing, a line says so and
// the list is disabled; no line is selected in any case.
std::vector<ExchangeItem> FillExchangeList(HWND list, const std::wstring& path);

// The items that the user selected, in their order.
std::vector<ExchangeItem> SelectedItems(HWND list, const std::vector<ExchangeItem>& items);

}  // namespace corvane
