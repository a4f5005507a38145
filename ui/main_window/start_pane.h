// What the window offers in the place of the list while no database is open: buttons that open one,
// make one, open one of the recent ones or the sample ship.
#pragma once

#include "platform/win32/win32.h"
#include "ui/main_window/main_window_layout.h"

namespace corvane {

// Created after the list; hidden.
void CreateStartPane(HWND window);

// Shows it instead of the list, or the list again. True when that has changed anything.
bool ShowStartPane(HWND window, bool isShown);
bool IsStartPaneShown(HWND window);

// Its buttons one below the other; those for which there is no room are not shown.
void PlaceStartPane(HWND window, const RECT& area, const Layout& layout);

}  // namespace corvane
