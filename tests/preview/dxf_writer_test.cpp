// The groups of a DXF drawing. That other programs read it: tests/pictures.
#include "preview/dxf_writer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "tests/preview/written_figure.h"

namespace corvane {
namespace {

// The groups from one that is there on, "code value" each.
std::vector<std::string> GroupsFrom(const Figure& figure, const std::string& first) {
    std::istringstream text(test::WithLineFeeds(test::WrittenBytes(WriteDxf, figure)));
    std::vector<std::string> groups;
    std::string code;
    std::string value;
    while (std::getline(text, code) && std::getline(text, value)) {
        groups.push_back(code + ' ' + value);
    }
    groups.erase(groups.begin(), std::ranges::find(groups, first));
    return groups;
}

std::string DxfTextOf(const std::wstring& text) {
    Figure figure = MakeFigure(100, 50, 1, {0, 0});
    AddText(figure, {0, 3}, {1, 1}, text);
    const std::vector<std::string> groups = GroupsFrom(figure, "0 TEXT");
    const auto found = std::ranges::find_if(
        groups, [](const std::string& group) { return group.starts_with("1 "); });
    return found == groups.end() ? std::string("none") : found->substr(2);
}

// The colour of a line, by its number; "of the layer" when it has none of its own.
std::string ColourOfLine(int32_t colour) {
    Figure figure = MakeFigure(100, 50, 1, {0, 0});
    AddSheetLine(figure, {FigureLayer::kPlate, colour, 1},
                 std::array<SheetPoint, 2>{{{0, 0}, {1, 2}}});
    const std::vector<std::string> groups = GroupsFrom(figure, "0 LINE");
    return groups.at(2).starts_with("62 ") ? groups[2].substr(3) : "of the layer";
}

TEST(DxfWriterTest, HeaderSaysTheReleaseAndTheExtent) {
    const std::vector<std::string> groups = GroupsFrom(test::SmallFigure(), "9 $ACADVER");
    ASSERT_GT(groups.size(), 10U);
    EXPECT_EQ(groups[1], "1 AC1009");
    EXPECT_EQ(groups[2], "9 $EXTMIN");
    EXPECT_EQ(groups[3], "10 0.0");
    EXPECT_EQ(groups[6], "9 $EXTMAX");
    EXPECT_EQ(groups[7], "10 10.0");
    EXPECT_EQ(groups[8], "20 5.0");
}

TEST(DxfWriterTest, ItemsAreInMetresOfTheShipOnTheirLayers) {
    EXPECT_EQ(GroupsFrom(test::SmallFigure(), "2 ENTITIES"),
              (std::vector<std::string>{
                  "2 ENTITIES",    "0 POLYLINE",    "8 PLATE",
                  "66 1",          "10 0.0",        "20 0.0",
                  "30 0.0",        "70 0",          "0 VERTEX",
                  "8 PLATE",       "10 0.0",        "20 0.0",
                  "30 0.0",        "0 VERTEX",      "8 PLATE",
                  "10 4.0625",     "20 0.0",        "30 0.0",
                  "0 VERTEX",      "8 PLATE",       "10 4.0625",
                  "20 3.0",        "30 0.0",        "0 SEQEND",
                  "0 LINE",        "8 STIFFENER",   "10 1.0",
                  "20 0.0",        "30 0.0",        "11 1.0",
                  "21 0.4",        "31 0.0",        "0 POLYLINE",
                  "8 COMPARTMENT", "66 1",          "10 0.0",
                  "20 0.0",        "30 0.0",        "70 1",
                  "0 VERTEX",      "8 COMPARTMENT", "10 0.0",
                  "20 0.0",        "30 0.0",        "0 VERTEX",
                  "8 COMPARTMENT", "10 4.0",        "20 0.0",
                  "30 0.0",        "0 VERTEX",      "8 COMPARTMENT",
                  "10 4.0",        "20 3.0",        "30 0.0",
                  "0 SEQEND",      "0 TEXT",        "8 TEXT",
                  "62 1",          "10 5.0",        "20 2.5",
                  "30 0.0",        "40 0.216",      "1 a<b & \"c\" \\U+00E9\\U+20AC",
                  "72 2",          "73 2",          "11 5.0",
                  "21 2.5",        "31 0.0",        "0 ENDSEC",
                  "0 EOF"}));
}

TEST(DxfWriterTest, TextsAreAsciiWithoutMarksOfTheFormat) {
    EXPECT_EQ(DxfTextOf(L"Hold 4, 50 %"), "Hold 4, 50 %");
    EXPECT_EQ(DxfTextOf(L"a\\U+0041 ^J"), "a\\U+005CU+0041 ^ J");
    EXPECT_EQ(DxfTextOf(L"5 % %%d"), "5 % %%%%%%d");
    EXPECT_EQ(DxfTextOf(L"a\nb\U0001F6A2"), "a b?");
    EXPECT_EQ(DxfTextOf(std::wstring(400, L'x')), std::string(250, 'x'));
    // Cut between two letters.
    EXPECT_EQ(DxfTextOf(std::wstring(400, L'\u00E9')).size(), 245U);
}

TEST(DxfWriterTest, ColoursAreTheNearestOfTheNumberedOnes) {
    EXPECT_EQ(ColourOfLine(0x00FF0000), "of the layer");
    EXPECT_EQ(ColourOfLine(0x000000FF), "1");
    EXPECT_EQ(ColourOfLine(0), "7");
    EXPECT_EQ(ColourOfLine(0x00000080), "14");
    EXPECT_EQ(ColourOfLine(0x00004080), "34") << "a hue of 30 degrees";
    EXPECT_EQ(ColourOfLine(0x00D0D0D0), "254");
}

TEST(DxfWriterTest, EmptyFigureIsADrawing) {
    const Figure figure = MakeFigure(100, 50, 1, {0, 0});
    EXPECT_EQ(GroupsFrom(figure, "2 ENTITIES"),
              (std::vector<std::string>{"2 ENTITIES", "0 ENDSEC", "0 EOF"}));
}

}  // namespace
}  // namespace corvane
