// A figure with an item of every shape, and what a writer makes of a figure.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "files/text_file.h"
#include "preview/figure.h"
#include "tests/support/support.h"

namespace corvane::test {

// 100 mm by 50 mm, 10 mm for each metre of the ship: y from 0 to 10 m, z from 0 to 5 m.
inline Figure SmallFigure() {
    Figure figure = MakeFigure(100, 50, 10, {5, 2.5});
    AddLine(figure, {FigureLayer::kPlate, 0x00FF0000, 0.5},
            std::array<ShipPoint, 3>{{{0, 0}, {4.0625, 0}, {4.0625, 3}}});
    AddLine(figure, {FigureLayer::kStiffener, 0x00008000, 0.25},
            std::array<ShipPoint, 2>{{{1, 0}, {1, 0.4}}});
    AddArea(figure, FigureLayer::kCompartment, 0x00F0F0F0,
            std::array<ShipPoint, 3>{{{0, 0}, {4, 0}, {4, 3}}});
    AddText(figure, {0x000000FF, 3, TextSide::kLeft}, {50, 25}, L"a<b & \"c\" \u00E9\u20AC");
    return figure;
}

// The bytes of the file that `write` (WriteSvg, WriteDxf) makes of it.
inline std::string WrittenBytes(void (*write)(const Figure&, TextWriter&), const Figure& figure) {
    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"picture");
    TextWriter writer;
    EXPECT_TRUE(CreateText(writer, path));
    write(figure, writer);
    EXPECT_TRUE(CloseText(writer));
    return ReadFileBytes(path);
}

}  // namespace corvane::test
