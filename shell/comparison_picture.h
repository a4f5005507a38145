// The picture in the box of a comparison: a section as it was before, and over it as it is now; an
// arrangement of bulkheads as it is now, or was. Decided without a window.
#pragma once

#include <string>
#include <vector>

#include "bsd/basic_ship_data.h"
#include "database/section.h"
#include "shell/bulkhead_outline.h"
#include "shell/comparison.h"
#include "shell/preview_pane.h"

namespace corvane {

struct ComparisonPicture {
    PreviewPane pane;     // the model as it is now, or was
    SectionModel before;  // of a section that both have: as it was
    bool hasBefore = false;
    bool isNow = false;  // the model in the pane is that of now
    std::wstring why;    // of a pane without a picture: the text in it; empty: none
    std::wstring label;  // what the picture shows; empty without one

    // The file of the model in the pane, its ship and its sections, for the outline around
    // bulkheads.
    std::wstring path;
    BasicShipData bsd;
    std::vector<SectionPlace> sections;
};

// Shows nothing; the text says why.
void EmptyPicture(ComparisonPicture& picture, const std::wstring& why = {});
// Shows a model of the comparison. What cannot be read is reported, and nothing is shown.
void ShowCompared(ComparisonPicture& picture, const Comparison& comparison,
                  const ComparedModel& model);

// TurnToNextBulkhead; the label says which it is.
bool ShowNextComparedBulkhead(ComparisonPicture& picture);

// Sections are as large as the larger one of both lets them be.
void DrawComparison(ComparisonPicture& shown, Picture& picture);

// Colours of the sections (0x00BBGGRR).
inline constexpr int32_t kBeforeColour = 0x000073E6;
inline constexpr int32_t kNowColour = 0x00FF0000;

}  // namespace corvane
