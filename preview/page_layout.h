// A page of paper, or a sheet of an exported drawing: the model to scale, a table beside it, and a
// title block at the foot; as one figure.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "preview/figure.h"
#include "preview/outline.h"

namespace corvane {

// The scales that a user chooses from, 1:N.
inline constexpr int kPageScales[] = {10, 20, 25, 50, 100, 200, 250, 500, 1000};

// The title block; a text that is too long for its field ends with "...".
struct PageTitle {
    std::wstring ship, database, model, x, frame, date, program;
};

struct PageTableLine {
    std::wstring label, value;
};

struct PageContents {
    double width_mm, height_mm;
    SheetArea margins;  // their breadths at the four sides [mm]
    PageTitle title;
    std::vector<PageTableLine> table;  // at the right side; none: the model has the whole breadth
    ShipBox extent;                    // of the model
    int scale = 0;                     // 1:N; 0: the largest whole one that shows the extent
    // Draws the model into the figure's window, at its scale.
    std::function<void(Figure&)> draw;
};

struct Page {
    Figure figure;
    // 1:N on paper, also when it was to fit; 0 without an extent: nothing is drawn then.
    double scale = 0;
    // At the chosen scale the model is larger than its part of the page, which shows the middle of
    // it and says so.
    bool isCutOff = false;
    size_t hiddenLines = 0;  // of the table, for which the page is too low; it says so
};

Page MakePage(const PageContents& contents);

// The usual breadth of a table.
inline constexpr double kPageTable_mm = 70;
// Adds the lines of a table that have room in an area of the sheet; the last of these says how many
// have not. Returns how many have not.
size_t AddTable(Figure& figure, const SheetArea& area, const std::vector<PageTableLine>& table);

}  // namespace corvane
