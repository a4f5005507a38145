// List boxes of the dialogs.
#pragma once

#include <cstdint>
#include <string>

#include "platform/win32/win32.h"

namespace corvane {

// Selects, or deselects, all items of a list box and leaves none of them current; waiting window
// messages are then handled. Nothing happens to a list that is disabled. In a list for one choice
// only the choice is taken back.
void SelectAllInList(HWND list, bool value = true);

// Adds an item and attaches a number to it (LB_GETITEMDATA).
void AddListItemWithData(HWND list, const std::wstring& text, int32_t data);

}  // namespace corvane
