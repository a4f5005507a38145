// What the boxes FM_Export and FM_Inport share: the lists of files at the left, LI_Sections with
// what the chosen file holds at the right, OK and Cancel below.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "shell/exchange_boxes.h"
#include "ui/dialogs/dialogs.h"
#include "ui/dialogs/file_lists.h"

namespace corvane {

struct ExchangeBox {
    FileLists lists;
    // After LI_Sections was filled or emptied; its lines are not selected then.
    std::function<void()> onItems;
    std::wstring path;                // of the file whose items are listed; empty without one
    std::vector<ExchangeItem> items;  // of LI_Sections
};

// The controls, in the order of the Tab key; each box adds its own between them.
void AddSectionsList(HWND window, const wchar_t* label, DWORD style = 0);
void AddOkAndCancel(HWND window);

// Places what both boxes have at the left and below. `sections` becomes the area at the right, of
// the given size in pixels at 96 dots per inch, and the result the size of the client area.
SIZE PlaceExchangeBox(HWND window, ExchangeBox& box, SIZE sectionsSize, UINT dpi, RECT& sections);

// Lists what the chosen file holds. Where there is nothing, a line says so and the list is
// disabled.
void ListChosenFile(HWND window, ExchangeBox& box);

// Does what the user asks of the lists of files. True for a double click on a file.
bool OnExchangeFiles(HWND window, ExchangeBox& box, const Notification& notification);

// What OK returns.
struct Accepted {
    std::wstring path;                   // of the chosen file; empty: the box stays open
    std::vector<ExchangeItem> selected;  // of LI_Sections, in their order
};
// What is missing is shown.
Accepted AcceptExchange(HWND window, ExchangeBox& box, bool needsSelection);

}  // namespace corvane
