// What the boxes FM_Export and FM_Inport share: the lists of files at the left, LI_Sections with
// what the chosen file holds and the preview at the right, OK and Cancel below.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "shell/exchange_boxes.h"
#include "shell/exchange_preview.h"
#include "ui/dialogs/dialogs.h"
#include "ui/dialogs/file_lists.h"

namespace corvane {

struct ExchangeBox {
    FileLists lists;
    // After LI_Sections was filled or emptied; its lines are not selected then.
    std::function<void()> onItems;
    std::wstring path;                // of the file whose items are listed; empty without one
    std::vector<ExchangeItem> items;  // of LI_Sections
    std::wstring ship;                // of the chosen file: what distinguishes it
    ExchangePreview preview;          // of OP_Preview, PIC_Section and LB_Service
    RECT picture{};                   // where PIC_Section is, with the table beside it
    UINT dpi = USER_DEFAULT_SCREEN_DPI;
};

// The controls, in the order of the Tab key; each box adds its own between them.
void AddSectionsList(HWND window, const wchar_t* label, DWORD style = 0);

// OP_Preview, PIC_Section, the table of the places that the user clicked on, LB_Service, and below
// it LB_Notes: what the user has to know before OK.
void AddPreview(HWND window, ExchangeBox& box);
void AddBrowse(HWND window);
void AddOkAndCancel(HWND window);

// Places what both boxes have at the left and below. `sections` becomes the area at the right, and
// the result is the size of the client area.
SIZE PlaceExchangeBox(HWND window, ExchangeBox& box, UINT dpi, RECT& sections);
// Places LI_Sections with its label and so many rows at the top of the area, which becomes what is
// left below them.
void PlaceSectionsList(HWND window, int rows, UINT dpi, RECT& area);
// Places the preview in all of the area.
void PlacePreview(HWND window, ExchangeBox& box, UINT dpi, RECT area);

bool IsPreviewOn(HWND window);
// Shows what the preview says now.
void ShowPreview(HWND window, const ExchangeBox& box);
// Runs the commands of the View menu for the picture by their keys, wherever the focus is; false
// for any other key.
bool OnPictureKey(HWND window, ExchangeBox& box, const MSG& message);

// Shows a file in the lists, whatever folder of this or another machine it is in, and lists it.
void ChooseFile(HWND window, ExchangeBox& box, const std::wstring& path);
// Asks for a file, by the prompt of the command whose box it is.
void BrowseForFile(HWND window, ExchangeBox& box, uint16_t command);

// Lists what the chosen file holds. Where there is nothing, a line says so and the list is
// disabled.
void ListChosenFile(HWND window, ExchangeBox& box);

// Does what the user asks of the lists of files. True for a double click on a file.
bool OnExchangeFiles(HWND window, ExchangeBox& box, const Notification& notification);

// OK, later, when the list that was double-clicked is through with the message.
void PostOk(HWND window);

// What OK returns.
struct Accepted {
    std::wstring path;                   // of the chosen file; empty: the box stays open
    std::vector<ExchangeItem> selected;  // of LI_Sections, in their order
};
// What is missing is shown.
Accepted AcceptExchange(HWND window, ExchangeBox& box, bool needsSelection);

}  // namespace corvane
