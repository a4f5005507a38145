// A model as it leaves the program: what is drawn of it, on the page of a printer as on the sheet
// of a file or of the clipboard, and the table that goes with it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "database/section.h"
#include "preview/page_layout.h"

namespace corvane {

struct ModelRow;  // shell/model_list.h

struct ModelDrawing {
    ShipBox extent;  // empty: there is nothing to draw
    std::function<void(Figure& figure)> draw = [](Figure&) {};
};

// A section, with what is switched on over the preview's. The drawing refers to it.
ModelDrawing DrawingOf(SectionModel& section);
// The model that the preview shows, bulkheads laid out for a sheet of this size; with the marks of
// the user where the table goes with it. The drawing refers to what the preview shows.
ModelDrawing DrawingOfShown(double width_mm, double height_mm);

// Whether the user has marked a place in the picture, and what is there; without lines unless the
// table is switched on.
bool IsAnythingMarked();
std::vector<PageTableLine> TableOfMarked();

// The sections of the open database, in the order of the list's rows.
std::vector<ModelRow> SectionsToDraw();
// Reads one of them. Why it cannot be drawn; empty when it can. Nothing is reported.
std::wstring ReadToDraw(const ModelRow& row, SectionModel& section);

}  // namespace corvane
