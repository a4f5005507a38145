// The preview of the boxes FM_Export and FM_Inport, decided without a window: a pane as the main
// window has one, with a model that need not be of the open database.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "bsd/basic_ship_data.h"
#include "shell/bulkhead_outline.h"
#include "shell/exchange_boxes.h"
#include "shell/preview_pane.h"

namespace corvane {

struct ExchangePreview {
    PreviewPane pane;
    std::wstring why;    // of a pane without a picture: the text in it; empty: none
    std::wstring label;  // LB_Service, what the pane shows; empty: nothing was read
    std::wstring note;   // LB_Notes: of an item its kind and position; of an export the room for it

    // The model's file, its ship and its sections, for the outline around bulkheads.
    std::wstring path;
    BasicShipData bsd;
    std::vector<SectionPlace> sections;
};

// A preview that shows nothing, with the switches of the View menu as they are now.
ExchangePreview NewExchangePreview();
// Shows nothing.
void EmptyPreview(ExchangePreview& preview);

// What LI_Sections lists.
struct ListedFile {
    const std::wstring& path;
    const std::vector<ExchangeItem>& items;
};
// Shows the model of an item, of which the label says the ship. What cannot be read is reported,
// and nothing is shown.
void PreviewItem(ExchangePreview& preview, const ListedFile& file, size_t item);
// The same with the label of FM_Export: this section is replaced.
void PreviewReplaced(ExchangePreview& preview, const ListedFile& file, size_t item);
// Shows the section that is exported, and the label says so.
void PreviewExported(ExchangePreview& preview, const ExportChoice& choice);

// TurnToNextBulkhead; the label says which it is.
bool PreviewNextBulkhead(ExchangePreview& preview);

void DrawExchangePreview(ExchangePreview& preview, Picture& picture);

}  // namespace corvane
