// The text of an SVG file. That other programs read it: tests/pictures.
#include "preview/svg_writer.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/preview/written_figure.h"

namespace corvane {
namespace {

TEST(SvgWriterTest, SheetHasItsSizeInMillimetres) {
    const std::string svg = test::WrittenBytes(WriteSvg, MakeFigure(297, 210.5, 1, {0, 0}));
    EXPECT_NE(svg.find("version=\"1.1\" width=\"297mm\" height=\"210.5mm\" "
                       "viewBox=\"0 0 297 210.5\""),
              svg.npos);
}

TEST(SvgWriterTest, ItemsAreInTheGroupsOfTheirLayers) {
    const std::string svg = test::WrittenBytes(WriteSvg, test::SmallFigure());
    EXPECT_EQ(svg.substr(svg.find("<g ")),
              "<g id=\"compartment\">\r\n"
              "<polygon points=\"0,50 40,50 40,20\" fill=\"#f0f0f0\"/>\r\n"
              "</g>\r\n"
              "<g id=\"plate\">\r\n"
              "<polyline points=\"0,50 40.625,50 40.625,20\" fill=\"none\" stroke=\"#0000ff\" "
              "stroke-width=\"0.5\"/>\r\n"
              "</g>\r\n"
              "<g id=\"stiffener\">\r\n"
              "<polyline points=\"10,50 10,46\" fill=\"none\" stroke=\"#008000\" "
              "stroke-width=\"0.25\"/>\r\n"
              "</g>\r\n"
              "<g id=\"text\">\r\n"
              "<text x=\"50\" y=\"26.08\" font-size=\"3\" text-anchor=\"end\" fill=\"#ff0000\">"
              "a&lt;b &amp; \"c\" \xC3\xA9\xE2\x82\xAC</text>\r\n"
              "</g>\r\n"
              "</svg>\r\n");
}

TEST(SvgWriterTest, CharactersThatXmlForbidsAreBlanks) {
    Figure figure = MakeFigure(100, 50, 1, {0, 0});
    AddText(figure, {0, 3}, {1, 1},
            L"a\x01"
            L"b\uFFFE"
            L"c]]>");
    EXPECT_NE(test::WrittenBytes(WriteSvg, figure).find(">a b c]]&gt;<"), std::string::npos);
}

TEST(SvgWriterTest, FarPlacesHaveNoExponent) {
    Figure figure = MakeFigure(100, 50, 1, {0, 0});
    AddSheetLine(figure, {FigureLayer::kPlate, 0, 1},
                 std::array<SheetPoint, 2>{{{-1e20, 0.00004}, {1, 2}}});
    EXPECT_NE(test::WrittenBytes(WriteSvg, figure).find("\"-100000000000000000000,0 1,2\""),
              std::string::npos);
}

TEST(SvgWriterTest, EmptyFigureHasEmptyGroups) {
    const std::string svg = test::WrittenBytes(WriteSvg, MakeFigure(100, 50, 1, {0, 0}));
    EXPECT_NE(svg.find("<g id=\"plate\">\r\n</g>"), svg.npos);
    EXPECT_TRUE(svg.ends_with("</svg>\r\n"));
}

}  // namespace
}  // namespace corvane
