// A computed section as a figure: what the preview shows (docs/drawing.md), to scale on a sheet.
//
// The section is one that the library has computed (QuickCompute); in symmetry mode 1 its mirror
// image is drawn, too. Widths of lines and the least lengths of stiffeners are those of the sheet.
#pragma once

#include <cstdint>

#include "platform/grvelk.h"
#include "preview/figure.h"
#include "preview/outline.h"
#include "preview/section_geometry.h"

namespace corvane {

// Colours (0x00BBGGRR); those of the preview with the usual colours of the system.
struct SectionColours {
    int32_t compartment = 0x00F0F0F0;
    int32_t plating = 0x00FF0000;
    int32_t plateEnd = 0x00000080;
    int32_t stiffener = 0x00008000;
    int32_t centreLine = 0x00A0A0A0;
};

// What the section, its stiffeners and its mirror image take up. False for a section without
// plating.
bool ExtentOf(const Section& section, ShipBox& extent);

// Adds compartments, plating, plate ends, stiffeners and the centre line, in this order. The centre
// line, on the layer of the texts, is a little higher than the section. Nothing is added of a
// section without plating.
void AddSection(Figure& figure, const Section& section, const SectionColours& colours = {});

// Lines of one colour, wider than usual by a length on the sheet.
struct SectionLines {
    int32_t colour;
    double wider_mm = 0;
};
// Adds the plating, the plate ends and the stiffeners alone, to show one section over another.
void AddSectionLines(Figure& figure, const Section& section, const SectionLines& lines);

// A sheet that shows an area as large as its margins let it; an area without extent is shown at
// 10 mm for each metre.
struct SheetSize {
    double width_mm, height_mm, margin_mm;
};
Figure MakeFittedFigure(const SheetSize& sheet, const ShipBox& area);

}  // namespace corvane
