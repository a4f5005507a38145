// What TraceSection draws, seen line by line.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "tests/companions/host/drawing_recorder.h"
#include "tests/companions/sample_section.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using grvelk::Pixel;
using test::DrawingRecorder;
using test::SampleSection;
using Line = std::vector<Pixel>;
using Lines = std::vector<Line>;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kLargest = std::numeric_limits<float>::max();

// SampleSection's colours are the slot's number plus 1.
constexpr int32_t kPlating = kColourPlating + 1;
constexpr int32_t kStiffeners = kColourStiffener + 1;
constexpr int32_t kLimits = kColourStrakeLimit + 1;
constexpr int32_t kCompartments = kColourCompartment + 1;
constexpr int32_t kCentreLine = kColourCentreLine + 1;
constexpr int32_t kTexts = kColourText + 1;

void Trace(DrawingRecorder& recorder, SampleSection& sample) {
    TraceSection(&recorder.drawing, &sample.section, &sample.parameters);
}

// Draws at 10 px a metre: y from -15 m to 15 m, z from -2 m to 14 m.
struct PlainPicture {
    DrawingRecorder recorder{300, 160};
    SampleSection sample;
    PlainPicture() { ScaleWindow(nullptr, &recorder.drawing, -15, -2, 15, 14, 200); }
    void Draw() { Trace(recorder, sample); }
    Lines Of(int32_t colour) const { return recorder.Of(colour); }
    bool Has(int32_t colour, const Line& line) const {
        const Lines lines = recorder.Of(colour);
        return std::find(lines.begin(), lines.end(), line) != lines.end();
    }
};

TEST(SectionDrawingTest, CompartmentsFirstThenPlatingLimitsStiffenersCentreLine) {
    PlainPicture picture;
    picture.Draw();
    std::vector<int32_t> colours;
    for (const DrawingRecorder::Step& step : picture.recorder.steps) {
        colours.push_back(step.colour);
    }
    EXPECT_EQ(colours, (std::vector<int32_t>{kCompartments, kCompartments, kPlating, kLimits,
                                             kStiffeners, kCentreLine}));
}

TEST(SectionDrawingTest, PlatingOfOneSideForModes0And2) {
    for (const int16_t mode : std::array<int16_t, 2>{0, 2}) {
        PlainPicture picture;
        picture.sample.section.symmetryMode = mode;
        picture.Draw();
        const Lines plating = picture.Of(kPlating);
        ASSERT_EQ(plating.size(), 3U) << mode;
        EXPECT_EQ(plating[0].front(), (Pixel{150, 140}));
        EXPECT_EQ(plating[0][1], (Pixel{250, 140}));
        EXPECT_EQ(plating[0].back(), (Pixel{270, 20}));
        EXPECT_EQ(plating[1], (Line{{150, 20}, {270, 20}}));
        EXPECT_EQ(plating[2], (Line{{150, 120}, {270, 120}}));
    }
}

TEST(SectionDrawingTest, Mode1DrawsTheMirrorImageToo) {
    PlainPicture picture;
    picture.Draw();
    const Lines plating = picture.Of(kPlating);
    ASSERT_EQ(plating.size(), 6U);
    EXPECT_EQ(plating[2], (Line{{150, 20}, {270, 20}}));
    EXPECT_EQ(plating[3], (Line{{150, 20}, {30, 20}}));
    EXPECT_EQ(plating[0].size(), plating[1].size());
    EXPECT_EQ(plating[1].front(), (Pixel{150, 140}));
    EXPECT_EQ(plating[1].back(), (Pixel{30, 20}));
}

TEST(SectionDrawingTest, BilgeFollowsItsCircle) {
    PlainPicture picture;
    picture.sample.section.symmetryMode = 0;
    picture.Draw();
    const Line shell = picture.Of(kPlating)[0];
    ASSERT_GT(shell.size(), 8U);
    for (size_t i = 1; i + 1 < shell.size(); ++i) {
        const double radius = std::hypot(shell[i].x - 250, shell[i].y - 120);
        EXPECT_NEAR(radius, 20, 1) << i;
        EXPECT_GE(shell[i].x, shell[i - 1].x);
        EXPECT_LE(shell[i].y, shell[i - 1].y);
    }
}

TEST(SectionDrawingTest, ArcIsCutIntoAsManyLinesAsItsSizeNeeds) {
    const auto pointsAt = [](int32_t width, int32_t height) {
        DrawingRecorder recorder(width, height);
        SampleSection sample;
        sample.section.symmetryMode = 0;
        ScaleWindow(nullptr, &recorder.drawing, -15, -2, 15, 14, 200);
        Trace(recorder, sample);
        return recorder.Of(kPlating)[0].size();
    };
    EXPECT_LT(pointsAt(30, 16), 8U);
    EXPECT_GT(pointsAt(3000, 1600), 15U);
    EXPECT_LE(pointsAt(30000000, 16000000), 200U + 3U);
}

TEST(SectionDrawingTest, PlateEndsAreTicksAcrossThePlating) {
    PlainPicture picture;
    picture.sample.section.symmetryMode = 0;
    picture.Draw();
    EXPECT_EQ(picture.Of(kLimits), (Lines{{{200, 143}, {200, 137}},     // at 5 m on the bottom
                                          {{250, 143}, {250, 137}},     // where the bilge begins
                                          {{273, 120}, {267, 120}}}));  // where it ends
}

TEST(SectionDrawingTest, PlateEndsBeyondTheStrakeAreLeftOut) {
    PlainPicture picture;
    picture.sample.contents[0].plateEnds = {-1, 30, kNaN, kInfinity, 5};
    picture.sample.Link();
    picture.sample.section.symmetryMode = 0;
    picture.Draw();
    EXPECT_EQ(picture.Of(kLimits).size(), 1U);
}

TEST(SectionDrawingTest, EveryFlatBarOfARowIsOnThePlating) {
    PlainPicture picture;
    picture.sample.section.symmetryMode = 0;
    picture.Draw();
    for (const int x : {170, 190, 210, 230}) {
        EXPECT_TRUE(picture.Has(kStiffeners, {{x, 140}, {x, 136}})) << x;
    }
    EXPECT_FALSE(picture.Has(kStiffeners, {{250, 140}, {250, 136}}));
}

TEST(SectionDrawingTest, ProfilesHaveTheirFlanges) {
    // 50 px a metre about the deck and the inner bottom.
    DrawingRecorder recorder(1500, 800);
    SampleSection sample;
    sample.section.symmetryMode = 0;
    ScaleWindow(nullptr, &recorder.drawing, -15, -2, 15, 14, 200);
    Trace(recorder, sample);
    const Lines lines = recorder.Of(kStiffeners);
    const auto has = [&](const Line& line) {
        return std::find(lines.begin(), lines.end(), line) != lines.end();
    };
    EXPECT_TRUE(has({{900, 100}, {900, 120}, {910, 120}})) << "angle below the deck";
    EXPECT_TRUE(has({{1050, 600}, {1050, 620}})) << "web of the tee";
    EXPECT_TRUE(has({{1045, 620}, {1055, 620}})) << "flange of the tee";
    EXPECT_TRUE(has({{1350, 500}, {1330, 500}, {1330, 490}})) << "bulb inside of the side";
}

TEST(SectionDrawingTest, TurnedFlangesPointToTheStartOfTheStrake) {
    DrawingRecorder recorder(1500, 800);
    SampleSection sample;
    for (test::TestSection::Parts& strake : sample.contents) {
        for (Stiffener& row : strake.stiffeners) row.mirrored = -1;
    }
    ScaleWindow(nullptr, &recorder.drawing, -15, -2, 15, 14, 200);
    Trace(recorder, sample);
    const Lines lines = recorder.Of(kStiffeners);
    const auto has = [&](const Line& line) {
        return std::find(lines.begin(), lines.end(), line) != lines.end();
    };
    EXPECT_TRUE(has({{900, 100}, {900, 120}, {890, 120}})) << "angle below the deck";
    EXPECT_TRUE(has({{600, 100}, {600, 120}, {610, 120}})) << "the same on the other side";
    EXPECT_TRUE(has({{1350, 500}, {1330, 500}, {1330, 510}})) << "bulb inside of the side";
    EXPECT_TRUE(has({{1045, 620}, {1055, 620}})) << "a tee has two sides";
    EXPECT_TRUE(has({{850, 700}, {850, 680}})) << "a flat bar has no flange";
}

TEST(SectionDrawingTest, BulbWithoutABreadthIsAFifthOfItsWeb) {
    DrawingRecorder recorder(3000, 1600);
    SampleSection sample;
    sample.section.symmetryMode = 0;
    sample.contents[0].stiffeners[1].flangeBreadth_mm = 0;
    ScaleWindow(nullptr, &recorder.drawing, -15, -2, 15, 14, 200);
    Trace(recorder, sample);
    const Lines lines = recorder.Of(kStiffeners);
    EXPECT_NE(std::find(lines.begin(), lines.end(), Line{{2700, 1000}, {2660, 1000}, {2660, 992}}),
              lines.end());
}

TEST(SectionDrawingTest, SmallProfilesCanStillBeSeen) {
    DrawingRecorder recorder(60, 32);  // 2 px a metre: a web of 0.4 m is less than a pixel
    SampleSection sample;
    sample.section.symmetryMode = 0;
    ScaleWindow(nullptr, &recorder.drawing, -15, -2, 15, 14, 200);
    Trace(recorder, sample);
    const Lines lines = recorder.Of(kStiffeners);
    ASSERT_EQ(lines.size(), 4U + 3U + 2U + 2U);
    EXPECT_EQ(lines[0], (Line{{34, 28}, {34, 24}}));
}

TEST(SectionDrawingTest, MirroredStiffenersAreOnTheOtherSide) {
    PlainPicture picture;
    picture.Draw();
    EXPECT_EQ(picture.Of(kStiffeners).size(), 2 * (4U + 3U + 2U + 2U));
    EXPECT_TRUE(picture.Has(kStiffeners, {{270, 100}, {266, 100}, {266, 98}}));
    EXPECT_TRUE(picture.Has(kStiffeners, {{30, 100}, {34, 100}, {34, 98}}));
}

TEST(SectionDrawingTest, RowsAroundABendAreUprightOnThePlating) {
    PlainPicture picture;
    picture.sample.section.symmetryMode = 0;
    test::TestSection::Parts& shell = picture.sample.contents[0];
    shell.stiffeners.resize(1);
    shell.stiffeners[0].s = 9;
    shell.stiffeners[0].count = 3;
    shell.stiffeners[0].spacing = 5;
    picture.sample.Link();
    picture.Draw();
    EXPECT_TRUE(picture.Has(kStiffeners, {{240, 140}, {240, 136}}));
    // At 14 m: 0.858 m up the side.
    EXPECT_TRUE(picture.Has(kStiffeners, {{270, 111}, {266, 111}}));
}

TEST(SectionDrawingTest, RowsThatWereNotComputedAreLeftOut) {
    PlainPicture picture;
    for (test::TestSection::Parts& strake : picture.sample.contents) {
        for (Stiffener& row : strake.stiffeners) row.normalY = row.normalZ = 0;
    }
    picture.Draw();
    EXPECT_TRUE(picture.Of(kStiffeners).empty());
}

TEST(SectionDrawingTest, RowEndsWhereTheStrakeEnds) {
    PlainPicture picture;
    picture.sample.section.symmetryMode = 0;
    test::TestSection::Parts& deck = picture.sample.contents[1];
    deck.stiffeners[0].count = 30000;
    picture.sample.contents[0].stiffeners.clear();
    picture.sample.contents[2].stiffeners.clear();
    picture.sample.Link();
    picture.Draw();
    EXPECT_EQ(picture.Of(kStiffeners).size(), 3U) << "at 3, 7 and 11 m";
}

TEST(SectionDrawingTest, RowWithoutSpacingOrCountIsOneOrNone) {
    for (const float spacing : {0.0F, -1.0F, kNaN}) {
        for (const int count : {30000, 0, -1}) {
            PlainPicture picture;
            picture.sample.section.symmetryMode = 0;
            picture.sample.contents[0].stiffeners.clear();
            picture.sample.contents[2].stiffeners.clear();
            picture.sample.contents[1].stiffeners[0].spacing = spacing;
            picture.sample.contents[1].stiffeners[0].count = static_cast<int16_t>(count);
            picture.sample.Link();
            picture.Draw();
            EXPECT_EQ(picture.Of(kStiffeners).size(), count > 0 ? 1U : 0U);
        }
    }
}

TEST(SectionDrawingTest, CompartmentIsFilledAlongItsPlating) {
    PlainPicture picture;
    picture.sample.section.symmetryMode = 0;
    picture.Draw();
    const Lines areas = picture.Of(kCompartments);
    ASSERT_EQ(areas.size(), 1U);
    const Line& area = areas[0];
    EXPECT_GT(area.size(), 8U) << "the bilge is round";
    EXPECT_EQ(area.front(), (Pixel{150, 140}));
    EXPECT_NE(std::find(area.begin(), area.end(), Pixel{270, 120}), area.end());
    EXPECT_EQ(area.back(), (Pixel{150, 120}));
}

TEST(SectionDrawingTest, OutlineMayRunBackAlongAStrake) {
    PlainPicture picture;
    picture.sample.section.symmetryMode = 0;
    picture.sample.doubleBottom = {{3, 1}, {3, 2}, {1, 3}, {1, 1}};
    picture.sample.Link();
    picture.Draw();
    const Line area = picture.Of(kCompartments).at(0);
    EXPECT_EQ(area.front(), (Pixel{150, 120}));
    EXPECT_EQ(area[1], (Pixel{270, 120}));
    EXPECT_NE(std::find(area.begin(), area.end(), Pixel{250, 140}), area.end());
    EXPECT_EQ(area.back(), (Pixel{150, 140}));
}

TEST(SectionDrawingTest, OutlineToNowhereIsSkipped) {
    PlainPicture picture;
    picture.sample.doubleBottom = {{0, 0}, {4, 1}, {-1, 5}, {1, 9}, {1, -3}, {1, 2}};
    picture.sample.Link();
    picture.Draw();
    EXPECT_LE(picture.Of(kCompartments).size(), 2U);
    EXPECT_EQ(picture.Of(kPlating).size(), 6U);
}

TEST(SectionDrawingTest, CentreLineIsDashDotted) {
    PlainPicture picture;
    picture.Draw();
    const Lines dashes = picture.Of(kCentreLine);
    ASSERT_GE(dashes.size(), 8U);
    // Begins a quarter of the lower margin below the base and ends half a margin above the deck.
    EXPECT_EQ(dashes.front().front(), (Pixel{150, 142}));
    EXPECT_EQ(dashes.back().back().y, 15);
    for (size_t i = 0; i + 1 < dashes.size(); ++i) {
        EXPECT_EQ(dashes[i].front().y - dashes[i].back().y, i % 2 == 0 ? 12 : 3);
        EXPECT_EQ(dashes[i].back().y - dashes[i + 1].front().y, 4);
        EXPECT_EQ(dashes[i].back().x, 150);
    }
}

TEST(SectionDrawingTest, FlagsChooseWhatIsDrawn) {
    PlainPicture picture;
    picture.sample.parameters.drawCompartments = 0;
    picture.sample.parameters.drawStiffeners = 0;
    picture.Draw();
    EXPECT_TRUE(picture.Of(kCompartments).empty());
    EXPECT_TRUE(picture.Of(kStiffeners).empty());
    EXPECT_FALSE(picture.Of(kPlating).empty());
    picture.recorder.steps.clear();
    picture.sample.parameters.drawPlating = 0;
    picture.sample.parameters.drawStiffeners = -1;
    picture.Draw();
    EXPECT_TRUE(picture.Of(kPlating).empty());
    EXPECT_TRUE(picture.Of(kLimits).empty());
    EXPECT_FALSE(picture.Of(kStiffeners).empty());
}

TEST(SectionDrawingTest, NumbersStandInTheMiddleOfTheStrakes) {
    PlainPicture picture;
    picture.Draw();
    EXPECT_TRUE(picture.Of(kTexts).empty()) << "not without the flag";
    picture.sample.parameters.drawNumbers = -1;
    picture.Draw();
    std::vector<std::string> texts;
    for (const DrawingRecorder::Step& step : picture.recorder.steps) {
        if (step.kind == DrawingRecorder::Step::Kind::kText) texts.push_back(step.text);
    }
    EXPECT_EQ(texts, (std::vector<std::string>{"1", "2", "3"}));
    EXPECT_EQ(picture.Of(kTexts).at(1), (Line{{210, 20}}));
}

TEST(SectionDrawingTest, PenWidthsFollowTheDotsPerInch) {
    struct Row {
        int32_t dotsPerInch, plating, thin;
    };
    for (const Row& row : {Row{96, 2, 1}, Row{120, 3, 1}, Row{144, 3, 2}, Row{192, 4, 2},
                           Row{0, 1, 1}, Row{-5, 1, 1}}) {
        DrawingRecorder recorder(300, 160, row.dotsPerInch);
        SampleSection sample;
        ScaleWindow(nullptr, &recorder.drawing, -15, -2, 15, 14, 200);
        Trace(recorder, sample);
        EXPECT_EQ(recorder.PenWidthOf(kPlating), row.plating) << row.dotsPerInch;
        EXPECT_EQ(recorder.PenWidthOf(kStiffeners), row.thin) << row.dotsPerInch;
        EXPECT_EQ(recorder.PenWidthOf(kLimits), row.thin) << row.dotsPerInch;
        EXPECT_EQ(recorder.PenWidthOf(kCentreLine), row.thin) << row.dotsPerInch;
    }
}

TEST(SectionDrawingTest, WithoutColoursEverythingIsBlack) {
    PlainPicture picture;
    picture.sample.parameters.colours = nullptr;
    picture.Draw();
    ASSERT_FALSE(picture.recorder.steps.empty());
    for (const DrawingRecorder::Step& step : picture.recorder.steps) EXPECT_EQ(step.colour, 0);
}

void ExpectWithinFrame(const DrawingRecorder& recorder) {
    for (const DrawingRecorder::Step& step : recorder.steps) {
        for (const Line& line : step.lines) {
            for (const Pixel& pixel : line) {
                EXPECT_GE(pixel.x, -16);
                EXPECT_GE(pixel.y, -16);
                EXPECT_LE(pixel.x, recorder.drawing.width + 16);
                EXPECT_LE(pixel.y, recorder.drawing.height + 16);
            }
        }
    }
}

TEST(SectionDrawingTest, NothingLiesOutsideOfTheFrame) {
    // A frame that shows only the bilge, then one far beside the section, then one turned over.
    for (const auto& frame :
         {std::array<float, 4>{11, 0, 12.5F, 0.8F}, std::array<float, 4>{1000, 1000, 1010, 1008},
          std::array<float, 4>{15, 14, -15, -2}}) {
        DrawingRecorder recorder(300, 160);
        SampleSection sample;
        ScaleWindow(nullptr, &recorder.drawing, frame[0], frame[1], frame[2], frame[3], 200);
        Trace(recorder, sample);
        ExpectWithinFrame(recorder);
        EXPECT_EQ(recorder.Of(kPlating).empty(), frame[0] == 1000);
    }
}

TEST(SectionDrawingTest, LineCutOffAtTheFrameKeepsItsDirection) {
    DrawingRecorder recorder(100, 100);
    SampleSection sample;
    sample.section.symmetryMode = 0;
    sample.contents.clear();
    sample.Add({test::GivenNode(-1000, -500), test::GivenNode(1000, 500)});
    sample.Compute();
    ScaleWindow(nullptr, &recorder.drawing, -10, -10, 10, 10, 200);
    Trace(recorder, sample);
    EXPECT_EQ(recorder.Of(kPlating), (Lines{{{-16, 83}, {116, 17}}}));
}

TEST(SectionDrawingTest, SectionWithoutAnythingDrawsItsCentreLineAlone) {
    PlainPicture picture;
    picture.sample.section.strakeCount = 0;
    picture.sample.section.compartmentCount = 0;
    picture.sample.section.strakes = nullptr;
    picture.sample.section.compartments = nullptr;
    picture.Draw();
    ASSERT_EQ(picture.recorder.steps.size(), 1U);
    EXPECT_EQ(picture.recorder.steps[0].colour, kCentreLine);
}

TEST(SectionDrawingTest, SectionWithoutGeometryDrawsNothing) {
    PlainPicture picture;
    picture.sample.section.geometryPresent = 0;
    picture.Draw();
    EXPECT_TRUE(picture.recorder.steps.empty());
}

TEST(SectionDrawingTest, CountsWithoutArraysDrawNothingBad) {
    PlainPicture picture;
    for (Strake& strake : picture.sample.strakes) {
        strake.nodes = nullptr;
        strake.items = nullptr;
        strake.stiffeners = nullptr;
        strake.plateEnds = nullptr;
    }
    picture.Draw();
    EXPECT_TRUE(picture.Of(kPlating).empty());
    picture.sample.section.strakes = nullptr;
    picture.sample.compartment.nodes = nullptr;
    picture.Draw();
    picture.sample.section.strakeCount = -1;
    picture.sample.section.compartmentCount = -1;
    picture.Draw();
    EXPECT_TRUE(picture.Of(kPlating).empty());
    EXPECT_TRUE(picture.Of(kCompartments).empty());
}

TEST(SectionDrawingTest, MissingRecordsDrawNothing) {
    PlainPicture picture;
    TraceSection(&picture.recorder.drawing, nullptr, &picture.sample.parameters);
    TraceSection(&picture.recorder.drawing, &picture.sample.section, nullptr);
    TraceSection(nullptr, &picture.sample.section, &picture.sample.parameters);
    EXPECT_TRUE(picture.recorder.steps.empty());
}

TEST(SectionDrawingTest, DeviceWithoutAFrameDrawsNothing) {
    SampleSection sample;
    DrawingRecorder neverScaled(300, 160);
    Trace(neverScaled, sample);
    EXPECT_TRUE(neverScaled.steps.empty());
    for (const auto& size : {Pixel{0, 160}, Pixel{300, 0}, Pixel{-1, -1}}) {
        DrawingRecorder empty(size.x, size.y);
        ScaleWindow(nullptr, &empty.drawing, -15, -2, 15, 14, 200);
        Trace(empty, sample);
        EXPECT_TRUE(empty.steps.empty());
    }
}

TEST(SectionDrawingTest, DegenerateFrameDrawsNothing) {
    for (const auto& frame :
         {std::array<float, 4>{0, 0, 0, 0}, std::array<float, 4>{5, 0, 5, 10},
          std::array<float, 4>{0, 5, 10, 5}, std::array<float, 4>{kNaN, 0, 10, 10},
          std::array<float, 4>{0, 0, kInfinity, 10},
          std::array<float, 4>{0, -kInfinity, 10, kInfinity}}) {
        DrawingRecorder recorder(300, 160);
        SampleSection sample;
        ScaleWindow(nullptr, &recorder.drawing, frame[0], frame[1], frame[2], frame[3], 200);
        Trace(recorder, sample);
        EXPECT_TRUE(recorder.steps.empty());
    }
}

TEST(SectionDrawingTest, LatestFrameOfADeviceCounts) {
    PlainPicture picture;
    ScaleWindow(nullptr, &picture.recorder.drawing, 0, 0, 0.1F, 0.1F, 200);
    ScaleWindow(nullptr, &picture.recorder.drawing, -15, -2, 15, 14, 200);
    std::vector<std::unique_ptr<DrawingRecorder>> others;
    for (int i = 0; i < 7; ++i) {
        others.push_back(std::make_unique<DrawingRecorder>(10, 10));
        ScaleWindow(nullptr, &others.back()->drawing, 0, 0, 1, 1, 200);
    }
    picture.Draw();
    EXPECT_TRUE(picture.Has(kPlating, {{150, 20}, {270, 20}}));
}

// Puts each value into each coordinate, radius and angle of the sample in turn.
void TraceWith(float value) {
    using Field = float StrakeItem::*;
    for (const Field field :
         {&StrakeItem::y1, &StrakeItem::z2, &StrakeItem::centreY, &StrakeItem::arcRadius,
          &StrakeItem::startAngle, &StrakeItem::sweep, &StrakeItem::length, &StrakeItem::s}) {
        PlainPicture picture;
        picture.sample.contents[0].items[1].*field = value;
        picture.Draw();
        ExpectWithinFrame(picture.recorder);
        EXPECT_LT(picture.recorder.PointCount(), 2000U);
        EXPECT_TRUE(picture.Has(kPlating, {{150, 20}, {270, 20}})) << "the deck is not concerned";
    }
    using RowField = float Stiffener::*;
    for (const RowField field : {&Stiffener::s, &Stiffener::spacing, &Stiffener::normalZ,
                                 &Stiffener::webHeight_mm, &Stiffener::flangeBreadth_mm}) {
        PlainPicture picture;
        picture.sample.contents[1].stiffeners[0].*field = value;
        picture.Draw();
        ExpectWithinFrame(picture.recorder);
        EXPECT_LT(picture.recorder.PointCount(), 20000U);
    }
}

TEST(SectionDrawingTest, CoordinatesThatAreNotNumbers) {
    TraceWith(kNaN);
    TraceWith(kInfinity);
    TraceWith(-kInfinity);
}

TEST(SectionDrawingTest, HugeCoordinates) {
    TraceWith(kLargest);
    TraceWith(-kLargest);
    TraceWith(1e20F);
}

TEST(SectionDrawingTest, DegenerateArcs) {
    TraceWith(0);
    TraceWith(1e-30F);
    TraceWith(-1e-30F);
}

TEST(SectionDrawingTest, BadHeightsDrawNoEndlessCentreLine) {
    for (const float height : {kNaN, kInfinity, -kInfinity, kLargest, -kLargest, 0.0F, -5.0F}) {
        PlainPicture picture;
        picture.sample.section.drawingHeight = height;
        picture.Draw();
        EXPECT_LT(picture.Of(kCentreLine).size(), 100U) << height;
        ExpectWithinFrame(picture.recorder);
    }
}

TEST(SectionDrawingTest, DamagedOutlineIsCutShort) {
    PlainPicture picture;
    picture.sample.doubleBottom.clear();
    for (int i = 0; i < 32767; ++i) {
        picture.sample.doubleBottom.push_back({1, static_cast<int16_t>(i % 2 == 0 ? 1 : 4)});
    }
    picture.sample.Link();
    picture.Draw();
    EXPECT_LT(picture.recorder.PointCount(), 50000U);
}

TEST(SectionDrawingTest, StiffenersWithoutEndAreCutShort) {
    PlainPicture picture;
    Stiffener row = picture.sample.contents[1].stiffeners[0];
    row.spacing = 1e-6F;
    row.count = 32767;
    picture.sample.contents[1].stiffeners.assign(32767, row);
    picture.sample.Link();
    picture.Draw();
    EXPECT_LE(picture.Of(kStiffeners).size(), 2U * 22000U);
}

TEST(SectionDrawingTest, SamePictureTwice) {
    PlainPicture picture;
    picture.Draw();
    const std::string first = picture.recorder.Svg();
    picture.recorder.steps.clear();
    picture.Draw();
    EXPECT_EQ(picture.recorder.Svg(), first);
}

TEST(SectionDrawingTest, PictureOfTheSampleSection) {
    DrawingRecorder recorder(600, 320);
    SampleSection sample;
    const int32_t colours[]{0x808080, 0xE0E0E0, 0, 0x000080, 0, 0, 0xFF0000, 0, 0, 0, 0, 0x008000};
    std::copy(std::begin(colours), std::end(colours), sample.colours);
    ScaleWindow(nullptr, &recorder.drawing, -15, -2, 15, 14, 200);
    Trace(recorder, sample);
    EXPECT_EQ(recorder.Svg(), test::ReadFileBytes(test::DataPath("golden/section.svg")));
}

}  // namespace
}  // namespace corvane
