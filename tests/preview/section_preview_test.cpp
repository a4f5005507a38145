// The frame of the preview, and the order in which it calls the drawing library.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "preview/section_preview.h"
#include "tests/companions/section_builder.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

struct Frame {
    float xLeft, yBottom, xRight, yTop;
};

// Everything that was asked of the library and of the picture, in order.
std::vector<std::string> calls;
std::vector<Frame> frames;
std::array<unsigned char, 136> parameterBytes;
std::array<int32_t, kColourCount> colours;
int16_t previewModeMeanwhile;
float fontBreadth;
int16_t resolution;
int sentinel;

int16_t CORVANE_STDCALL RecordQuickCompute(Section* section, DrawingParameters* parameters) {
    calls.emplace_back("QuickCompute");
    std::memcpy(parameterBytes.data(), parameters, sizeof(*parameters));
    std::copy_n(parameters->colours, kColourCount, colours.begin());
    previewModeMeanwhile = section->previewMode;
    return 0;
}

void CORVANE_STDCALL RecordScaleWindow(WindowHandle window, DeviceHandle dc, float xLeft,
                                       float yBottom, float xRight, float yTop, int16_t argument) {
    EXPECT_EQ(window, &calls);
    EXPECT_EQ(dc, &sentinel);
    calls.emplace_back(xRight == 0.1F ? "ScaleWindow provisional" : "ScaleWindow");
    frames.push_back({xLeft, yBottom, xRight, yTop});
    resolution = argument;
}

void CORVANE_STDCALL RecordTraceSection(DeviceHandle dc, Section* section,
                                        DrawingParameters* parameters) {
    EXPECT_EQ(dc, &sentinel);
    calls.emplace_back("TraceSection");
    EXPECT_EQ(std::memcmp(parameterBytes.data(), parameters, sizeof(*parameters)), 0)
        << "the same parameters as for QuickCompute";
    EXPECT_EQ(section->previewMode, 0);
}

struct SectionPreviewTest : testing::Test {
    test::FakeFunction<decltype(QuickCompute)> quickCompute{QuickCompute, RecordQuickCompute};
    test::FakeFunction<decltype(ScaleWindow)> scaleWindow{ScaleWindow, RecordScaleWindow};
    test::FakeFunction<decltype(TraceSection)> traceSection{TraceSection, RecordTraceSection};
    Picture picture;
    Section section{};
    BasicShipData bsd{};

    SectionPreviewTest() {
        calls.clear();
        frames.clear();
        picture.window = &calls;
        picture.dc = &sentinel;
        picture.width = 4000;
        picture.height = 3000;
        picture.scaleMode = 3;
        picture.scaleWidth = 4000;
        picture.scaleHeight = 3000;
        picture.clear = [](Picture&) { calls.emplace_back("clear"); };
        picture.setFont = [](Picture&, float breadth) {
            calls.emplace_back("font");
            fontBreadth = breadth;
        };
        picture.systemColour = [](int index) { return int32_t{0x00C0C000} + index; };
        section.geometryPresent = -1;
        section.previewMode = 7;
        section.symmetryMode = 1;
        bsd.MainData(1) = 180;
        bsd.MainData(2) = 30;
        bsd.MainData(3) = 15;
        bsd.MainData(4) = 15;
        bsd.MainData(5) = 17;
        bsd.MainData(9) = 0.8F;
    }
    ~SectionPreviewTest() override = default;

    void Draw() { DrawSectionPreview(section, bsd, picture); }
    // The fit alone, of a section of 30 m by 20 m.
    Frame Fit(int16_t mode, float breadth = 30, float height = 20) {
        frames.clear();
        PreviewParameters made;
        MakePreviewParameters(breadth, picture, made);
        FitPreviewScale(picture, breadth, height, mode, made.parameters);
        return frames.empty() ? Frame{} : frames.back();
    }
};

TEST_F(SectionPreviewTest, CallsComeInTheSettledOrder) {
    Draw();
    EXPECT_EQ(calls, (std::vector<std::string>{"font", "QuickCompute", "ScaleWindow provisional",
                                               "ScaleWindow", "ScaleWindow provisional", "clear",
                                               "ScaleWindow", "TraceSection"}));
    EXPECT_EQ(resolution, 200);
    EXPECT_EQ(picture.scaleMode, 1);
    EXPECT_EQ(fontBreadth, 30);
}

TEST_F(SectionPreviewTest, ZoomedPictureChangesTheLastFrameAlone) {
    Draw();
    const std::vector<std::string> fittedCalls = calls;
    const std::vector<Frame> fitted = frames;
    const double width = picture.scaleWidth;
    ZoomView(picture, 2, 0.5, 0.5);
    calls.clear();
    frames.clear();
    Draw();
    EXPECT_EQ(calls, fittedCalls);
    ASSERT_EQ(frames.size(), fitted.size());
    EXPECT_EQ(frames[1].xLeft, fitted[1].xLeft) << "the fit itself stays";
    EXPECT_NEAR(frames.back().xRight - frames.back().xLeft, width / 2, 1e-5);
    FitView(picture.view);
    frames.clear();
    Draw();
    EXPECT_EQ(frames.back().xLeft, fitted.back().xLeft);
    EXPECT_EQ(frames.back().yTop, fitted.back().yTop);
}

TEST_F(SectionPreviewTest, BreadthAndLargestHeightGoIntoTheSection) {
    Draw();
    EXPECT_EQ(section.drawingBreadth, 30);
    EXPECT_EQ(section.drawingHeight, 17);
    bsd.MainData(4) = 18;
    Draw();
    EXPECT_EQ(section.drawingHeight, 18);
    bsd.MainData(3) = 19;
    Draw();
    EXPECT_EQ(section.drawingHeight, 19);
}

TEST_F(SectionPreviewTest, PreviewModeIsZeroMeanwhileAndRestored) {
    Draw();
    EXPECT_EQ(previewModeMeanwhile, 0);
    EXPECT_EQ(section.previewMode, 7);
}

TEST_F(SectionPreviewTest, BsdNotDefinedKeepsTheOldContents) {
    for (const int index : {1, 2, 3, 9}) {
        for (const float value : {0.0F, -1.0F}) {
            const float before = bsd.MainData(index);
            bsd.MainData(index) = value;
            Draw();
            bsd.MainData(index) = before;
            EXPECT_TRUE(calls.empty()) << index;
            EXPECT_EQ(section.drawingBreadth, 0);
            EXPECT_EQ(picture.scaleMode, 3);
            EXPECT_EQ(picture.scaleWidth, 4000);
        }
    }
}

TEST_F(SectionPreviewTest, SectionWithoutGeometryKeepsTheOldContents) {
    section.geometryPresent = 0;
    Draw();
    EXPECT_TRUE(calls.empty());
    section.geometryPresent = 1;
    Draw();
    EXPECT_FALSE(calls.empty()) << "any word but 0 will do";
}

TEST_F(SectionPreviewTest, ParametersByteByByte) {
    Draw();
    std::array<unsigned char, 136> expected{};
    const auto put = [&](size_t offset, const auto& value) {
        std::memcpy(expected.data() + offset, &value, sizeof(value));
    };
    put(0, int16_t{-1});
    put(6, int16_t{-1});
    put(8, int16_t{0});
    put(20, int16_t{-1});
    put(72, int16_t{8});
    put(74, int16_t{200});
    put(76, 0.08F);
    // The colours' address is checked through what is there.
    std::memcpy(expected.data() + 108, parameterBytes.data() + 108, sizeof(void*));
    EXPECT_EQ(parameterBytes, expected);
}

TEST_F(SectionPreviewTest, ColoursOfTheSlots) {
    Draw();
    for (int slot = 0; slot < kColourCount; ++slot) {
        int32_t expected = 0;
        if (slot == 0) expected = 0x00C0C000 + 16;
        if (slot == 1) expected = 0x00C0C000 + 15;
        if (slot == 3 || slot == 13) expected = 0x00000080;
        if (slot == 6) expected = 0x00FF0000;
        if (slot == 11) expected = 0x00008000;
        EXPECT_EQ(colours[static_cast<size_t>(slot)], expected) << slot;
    }
}

TEST_F(SectionPreviewTest, DetailDependsOnTheBreadth) {
    const auto detailOf = [&](float breadth) {
        PreviewParameters made;
        MakePreviewParameters(breadth, picture, made);
        return made.parameters.detail;
    };
    EXPECT_EQ(detailOf(9.99F), 60);
    EXPECT_EQ(detailOf(10), 8);
    EXPECT_EQ(detailOf(std::nextafter(10.0F, 0.0F)), 60);
    EXPECT_EQ(detailOf(48), 8);
}

TEST_F(SectionPreviewTest, BreadthOfTheShipReachesTheParameters) {
    int16_t detail = 0;
    bsd.MainData(2) = 9.99F;
    Draw();
    std::memcpy(&detail, parameterBytes.data() + 72, sizeof(detail));
    EXPECT_EQ(detail, 60);
    bsd.MainData(2) = 10;
    Draw();
    std::memcpy(&detail, parameterBytes.data() + 72, sizeof(detail));
    EXPECT_EQ(detail, 8);
}

TEST_F(SectionPreviewTest, Mode1IsSymmetricAboutTheCentreLine) {
    const Frame frame = Fit(1);
    EXPECT_FLOAT_EQ(frame.xLeft, -frame.xRight);
    // 4000 / 31.2 twips a metre across are fewer than 3000 / 22.4 upwards.
    EXPECT_FLOAT_EQ(frame.xRight, 15.6F);
    EXPECT_FLOAT_EQ(frame.yTop - frame.yBottom, 3000 / (4000 / 31.2F));
    EXPECT_NEAR((frame.yTop + frame.yBottom) / 2, (21.6F - 0.8F) / 2, 1e-4);
}

TEST_F(SectionPreviewTest, Modes0And2ShowOneSideWithANarrowMargin) {
    picture.width = 1000;  // tall: the breadth fills the picture
    for (const int16_t mode : std::array<int16_t, 2>{0, 2}) {
        const Frame frame = Fit(mode);
        EXPECT_FLOAT_EQ(frame.xRight, 15.6F);
        EXPECT_FLOAT_EQ(frame.xLeft, -0.02F * 30);
    }
    EXPECT_FLOAT_EQ(Fit(1).xRight, 15.6F) << "the same right-hand frame";
}

TEST_F(SectionPreviewTest, UnknownModeBeginsAtTheCentreLine) {
    picture.width = 1000;
    for (const int16_t mode : std::array<int16_t, 3>{3, -1, 99}) {
        const Frame frame = Fit(mode);
        EXPECT_EQ(frame.xLeft, 0);
        EXPECT_FLOAT_EQ(frame.xRight, 15.6F);
    }
}

TEST_F(SectionPreviewTest, WidePictureWidensTheHorizontalRange) {
    // Twips a metre: 9000 / 31.2 across, 3000 / 22.4 upwards; the larger one's range is widened.
    picture.width = 9000;
    const Frame frame = Fit(1);
    EXPECT_FLOAT_EQ(frame.yBottom, -0.8F);
    EXPECT_FLOAT_EQ(frame.yTop, 21.6F);
    EXPECT_FLOAT_EQ(frame.xRight - frame.xLeft, 9000 / (3000 / 22.4F));
    EXPECT_NEAR(frame.xLeft + frame.xRight, 0, 1e-4);
}

TEST_F(SectionPreviewTest, TallPictureWidensTheVerticalRange) {
    picture.height = 9000;
    const Frame frame = Fit(1);
    EXPECT_FLOAT_EQ(frame.xLeft, -15.6F);
    EXPECT_FLOAT_EQ(frame.xRight, 15.6F);
    EXPECT_FLOAT_EQ(frame.yTop - frame.yBottom, 9000 / (4000 / 31.2F));
    EXPECT_NEAR((frame.yTop + frame.yBottom) / 2, 10.4F, 1e-4);
}

TEST_F(SectionPreviewTest, OneSideKeepsItsMiddleInAWidePicture) {
    picture.width = 9000;
    const Frame frame = Fit(0);
    EXPECT_NEAR((frame.xLeft + frame.xRight) / 2, (15.6F - 0.6F) / 2, 1e-4);
    EXPECT_FLOAT_EQ(frame.yBottom, -0.8F);
}

TEST_F(SectionPreviewTest, EqualFactorsLeaveBothRanges) {
    picture.width = 3120;
    picture.height = 2240;
    const Frame frame = Fit(1);
    EXPECT_FLOAT_EQ(frame.xLeft, -15.6F);
    EXPECT_FLOAT_EQ(frame.xRight, 15.6F);
    EXPECT_NEAR(frame.yBottom, -0.8F, 1e-5);
    EXPECT_NEAR(frame.yTop, 21.6F, 1e-5);
}

TEST_F(SectionPreviewTest, NothingIsDistorted) {
    for (const float width : {100.0F, 1500.0F, 4000.0F, 30000.0F}) {
        for (const int16_t mode : std::array<int16_t, 4>{0, 1, 2, 3}) {
            picture.width = width;
            const Frame frame = Fit(mode);
            const float across = picture.width / (frame.xRight - frame.xLeft);
            const float upwards = picture.height / (frame.yTop - frame.yBottom);
            EXPECT_NEAR(across / upwards, 1, 1e-4) << width << ' ' << mode;
        }
    }
}

TEST_F(SectionPreviewTest, UserScaleIsTheFrameWithYUpwards) {
    const Frame frame = Fit(1);
    EXPECT_EQ(picture.scaleLeft, frame.xLeft);
    EXPECT_EQ(picture.scaleTop, frame.yTop);
    EXPECT_EQ(picture.scaleWidth, frame.xRight - frame.xLeft);
    EXPECT_EQ(picture.scaleHeight, frame.yBottom - frame.yTop);
    EXPECT_LT(picture.scaleHeight, 0);
}

TEST_F(SectionPreviewTest, SyncSendsTheScaleOfThePicture) {
    picture.scaleLeft = -10;
    picture.scaleTop = 20;
    picture.scaleWidth = 30;
    picture.scaleHeight = -25;
    SyncGraphicsFrame(picture);
    EXPECT_EQ(calls, (std::vector<std::string>{"ScaleWindow provisional", "clear", "ScaleWindow"}));
    EXPECT_EQ(frames[0].xLeft, 0);
    EXPECT_EQ(frames[0].yBottom, 0);
    EXPECT_EQ(frames[0].yTop, 0.1F);
    EXPECT_EQ(frames[1].xLeft, -10);
    EXPECT_EQ(frames[1].yBottom, -5);
    EXPECT_EQ(frames[1].xRight, 20);
    EXPECT_EQ(frames[1].yTop, 20);
}

TEST_F(SectionPreviewTest, DrawingEndsWithTheFittedFrame) {
    Draw();
    ASSERT_EQ(frames.size(), 4U);
    EXPECT_FLOAT_EQ(frames[3].xLeft, frames[1].xLeft);
    EXPECT_FLOAT_EQ(frames[3].yBottom, frames[1].yBottom);
    EXPECT_FLOAT_EQ(frames[3].xRight, frames[1].xRight);
    EXPECT_FLOAT_EQ(frames[3].yTop, frames[1].yTop);
}

// ---- Sections larger than the ship -------------------------------------------------------------

struct LargeSectionTest : SectionPreviewTest {
    test::TestSection large;

    // The described calls, and the frame that ScaleWindow got last.
    Frame DrawLarge(int16_t mode) {
        frames.clear();
        calls.clear();
        large.section.geometryPresent = -1;
        large.section.symmetryMode = mode;
        DrawSectionPreview(large.section, bsd, picture);
        return frames.back();
    }
    // Two nodes as the library has computed them.
    void Span(Node a, Node b) {
        for (Node* node : {&a, &b}) {
            node->y = node->givenY;
            node->z = node->givenZ;
            node->computed = -1;
        }
        large.Add({a, b});
    }
    static bool Holds(const Frame& frame, float y, float z) {
        return frame.xLeft < y && y < frame.xRight && frame.yBottom < z && z < frame.yTop;
    }
};

TEST_F(LargeSectionTest, SectionInsideTheFrameGetsTheDescribedCalls) {
    Span(test::GivenNode(0, 0), test::GivenNode(15, 17));
    for (const int16_t mode : {int16_t{0}, int16_t{1}}) {
        const Frame frame = DrawLarge(mode);
        EXPECT_EQ(frames.size(), 4U);
        EXPECT_EQ(calls.size(), 8U);
        Fit(mode, 30, 17);
        EXPECT_FLOAT_EQ(frames.back().xRight, frame.xRight);
        EXPECT_FLOAT_EQ(frames.back().yTop, frame.yTop);
    }
}

TEST_F(LargeSectionTest, BroaderAndHigherSectionIsHeldWithItsMargins) {
    Span(test::GivenNode(0, 0), test::GivenNode(30, 40));
    picture.width = 1000;
    const Frame tall = DrawLarge(0);
    EXPECT_EQ(calls,
              (std::vector<std::string>{"font", "QuickCompute", "ScaleWindow provisional",
                                        "ScaleWindow", "ScaleWindow", "ScaleWindow provisional",
                                        "clear", "ScaleWindow", "TraceSection"}))
        << "the fit is repeated";
    EXPECT_FLOAT_EQ(tall.xRight, 30 * 1.04F) << "as for a ship of that breadth";
    EXPECT_FLOAT_EQ(tall.xLeft, -1.2F);
    picture.width = 9000;
    const Frame wide = DrawLarge(0);
    EXPECT_FLOAT_EQ(wide.yTop, 40 * 1.08F) << "as for a ship of that depth";
    EXPECT_NEAR(wide.yBottom, -1.6F, 1e-4);
    EXPECT_EQ(large.section.drawingBreadth, 30) << "the ship's";
    EXPECT_EQ(large.section.drawingHeight, 17);
}

TEST_F(LargeSectionTest, WhatIsBelowTheBaseOrAcrossTheCentreLineIsHeld) {
    Span(test::GivenNode(-6, -5), test::GivenNode(10, 10));
    for (const float width : {1000.0F, 9000.0F}) {
        picture.width = width;
        for (const int16_t mode : {int16_t{0}, int16_t{1}, int16_t{2}, int16_t{7}}) {
            const Frame frame = DrawLarge(mode);
            EXPECT_TRUE(Holds(frame, -6, -5)) << mode;
            EXPECT_TRUE(Holds(frame, 10, 10)) << mode;
            if (mode == 1) {
                EXPECT_FLOAT_EQ(frame.xLeft, -frame.xRight);
            }
            EXPECT_NEAR(picture.width / (frame.xRight - frame.xLeft),
                        picture.height / (frame.yTop - frame.yBottom), 0.05);
        }
    }
}

TEST_F(LargeSectionTest, MirrorImageIsHeldToo) {
    Span(test::GivenNode(-40, 0), test::GivenNode(0, 10));
    EXPECT_TRUE(Holds(DrawLarge(1), 40, 10));
}

TEST_F(LargeSectionTest, ArcBeyondItsNodesIsHeld) {
    // Half a circle of 10 m radius on the right of x = 10.
    Span(test::RadiusNode(10, 0, 10), test::GivenNode(10, 20));
    StrakeItem& item = large.ItemOf(1, 1);
    item.y1 = item.y2 = 10;
    item.z2 = item.length = 20;
    item.arcRadius = 10;
    item.sweep = 3.1415927F;
    picture.width = 1000;  // tall: nothing is widened to the sides
    EXPECT_TRUE(Holds(DrawLarge(0), 20, 10));
}

TEST_F(LargeSectionTest, NodesWithoutAPlaceChangeNothing) {
    Span(test::GivenNode(0, 0), test::GivenNode(15, 17));
    large.NodeOf(1, 1).y = std::nanf("");
    large.NodeOf(1, 2).z = INFINITY;
    Span(test::GivenNode(500, 500), test::GivenNode(600, 600));
    large.NodeOf(2, 1).computed = large.NodeOf(2, 2).computed = 0;
    DrawLarge(0);
    EXPECT_EQ(frames.size(), 4U);
}

TEST_F(SectionPreviewTest, DegenerateExtentLeavesTheScaleAndSkipsTheFit) {
    struct Row {
        float width, height, breadth, depth;
    };
    for (const Row& row :
         {Row{4000, 3000, 0, 20}, Row{4000, 3000, 0.0004F, 20}, Row{4000, 3000, 30, 0},
          Row{4000, 3000, 30, 0.0008F}, Row{0, 3000, 30, 20}, Row{4000, 0, 30, 20}}) {
        picture.width = row.width;
        picture.height = row.height;
        Fit(1, row.breadth, row.depth);
        EXPECT_TRUE(frames.empty());
        EXPECT_EQ(picture.scaleWidth, 4000);
        EXPECT_EQ(picture.scaleHeight, 3000);
    }
}

TEST_F(SectionPreviewTest, DegenerateExtentIsStillTraced) {
    picture.height = 0;
    Draw();
    EXPECT_EQ(calls, (std::vector<std::string>{"font", "QuickCompute", "ScaleWindow provisional",
                                               "ScaleWindow provisional", "clear", "ScaleWindow",
                                               "TraceSection"}));
    EXPECT_EQ(frames[2].xRight, 4000) << "the scale that the picture had";
    EXPECT_EQ(section.previewMode, 7);
}

}  // namespace
}  // namespace corvane
