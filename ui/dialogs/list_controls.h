// List boxes and drop-down lists of the dialogs, and columns of list views.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ui/base/controls.h"

namespace corvane {

// Selects, or deselects, all items of a list box and leaves none of them current; waiting window
// messages are then handled. Nothing happens to a list that is disabled. In a list for one choice
// only the choice is undone.
void SelectAllInList(HWND list, bool value = true);

// Adds an item and attaches a number to it (LB_GETITEMDATA).
void AddListItemWithData(HWND list, const std::wstring& text, int32_t data);

// Fills a list box again, without a selection; it is painted once.
void FillList(HWND list, const std::vector<std::wstring>& items);
// Lets the user scroll a list box sideways as far as its widest item, in its font, needs it.
void FitScrolling(HWND list);
// Text of an item; empty for an index that no item has.
std::wstring ListItemText(HWND list, LRESULT index);

// A drop-down list: its style, its items with the one that is chosen, which of them that is now.
inline constexpr DWORD kDropDownStyle = WS_VSCROLL | CBS_DROPDOWNLIST;
void FillDropDown(HWND list, const std::vector<std::wstring>& items, size_t chosen);
size_t ChoiceOfDropDown(HWND list);
// Places it over the whole breadth at the top of the area, which becomes what is left below it.
void PlaceDropDown(HWND window, int id, RECT& area, UINT dpi);

// Adds a column to a list view after the others; `index` is its place, from 0.
void AddListColumn(HWND list, int index, const wchar_t* title, bool alignsRight);
// Puts a text where a list view asks for one (LVN_GETDISPINFO), cut to the room that is there.
void PutItemText(LVITEMW& item, const std::wstring& text);

}  // namespace corvane
