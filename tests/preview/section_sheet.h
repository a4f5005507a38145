// A sheet with a section on it.
#pragma once

#include "preview/section_figure.h"

namespace corvane::test {

// As large as the margins let it; without plating the sheet is empty.
inline Figure MakeSectionFigure(const Section& section, const SheetSize& sheet,
                                const SectionColours& colours = {}) {
    ShipBox extent{};
    if (!ExtentOf(section, extent)) extent = {0, 0, 0, 0};
    Figure figure = MakeFittedFigure(sheet, extent);
    AddSection(figure, section, colours);
    return figure;
}

}  // namespace corvane::test
