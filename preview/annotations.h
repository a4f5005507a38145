// What a picture of a section shows besides the section, as the user switched it on: on the sheet
// of a figure, over what is drawn there already.
#pragma once

#include <string>
#include <vector>

#include "platform/grvelk.h"
#include "preview/figure.h"

namespace corvane {

struct PictureOptions {
    bool hasScaleBar = false;
    bool hasAxes = false;  // rulers in m along two edges, base line and centre line
    bool hasLegend = false;
    bool hasPanelNames = false;
    bool hasNumbers = false;    // of the nodes and the strakes
    bool hasThickness = false;  // plates in colours, with a key
    // What is at the marked places, as a table in pictures that leave the program.
    bool hasTable = false;
    bool operator==(const PictureOptions&) const = default;
};

// A plate as it is coloured: its strake from 1, and its ends on it.
struct PlateThickness {
    int strake;
    double from_m, to_m;
    float thickness_mm;
};

// The words and values that the section's geometry does not have.
struct AnnotationTexts {
    std::vector<std::wstring> panelNames;  // of the strakes, in order
    std::vector<PlateThickness> plates;
    // The legend: names of a plate, a stiffener, a plate's end, a compartment.
    std::wstring plate, stiffener, plateEnd, compartment;
};

// Of a computed section; in symmetry mode 1 thicknesses are shown on both sides, names and numbers
// on the side that is described. Names and numbers that would cover others are left out.
void AddAnnotations(Figure& figure, const Section& section, const AnnotationTexts& texts,
                    const PictureOptions& options);

// A line of a legend: an example of a line or an area, and its words.
struct LegendLine {
    FigureShape shape;
    FigurePen pen;
    std::wstring text;
};
// At the upper right of the window.
void AddLegend(Figure& figure, const std::vector<LegendLine>& lines);

// At the lower left of the window.
void AddScaleBar(Figure& figure);

// The length of 1, 2 or 5 times a power of ten that is not longer than `most`; 0 for what is not a
// positive number.
double RoundLength(double most);

}  // namespace corvane
